#include "windows/vtxt/persistence.h"

#include <quillet_vtxt_com.h>

#include <array>
#include <string>

#include "windows/com/errors.h"
#include "windows/com/text.h"
#include "windows/com/variant.h"
#include "windows/vtxt/property_stream.h"
#include "windows/vtxt/vtxt_control.h"

namespace quillet::windows {
namespace {

struct Kept {
  const char* name;
  Variant (*value)(const VTxt& box);
  bool isText = false;
};

constexpr std::array<Kept, 5> keptProperties{{
    {"ValidateData", [](const VTxt& box) { return Variant(box.ValidateData()); }},
    {"MaxLength", [](const VTxt& box) { return Variant(box.MaxLength()); }},
    {"MinLength", [](const VTxt& box) { return Variant(box.MinLength()); }},
    {"Include", [](const VTxt& box) { return Variant(box.Include()); }, true},
    {"Exclude", [](const VTxt& box) { return Variant(box.Exclude()); }, true},
}};

}  // namespace

STDMETHODIMP Persistence::GetClassID(CLSID* clsid) noexcept {
  if (!clsid) return E_POINTER;
  *clsid = CLSID_VTxt;
  return S_OK;
}

STDMETHODIMP Persistence::InitNew() noexcept {
  changed_ = false;
  return S_OK;
}

void Persistence::loaded() {
  control_.redraw();
  changed_ = false;
}

void Persistence::saved(bool clear) {
  if (clear) changed_ = false;
  control_.oleObject.saved();
}

// --- a stream -----------------------------------------------------------------------------------

STDMETHODIMP Persistence::Load(IStream* stream) noexcept {
  if (!stream) return E_POINTER;
  return guarded(IID_IPersistStreamInit, [&] {
    control_.box().USERCONTROL_READPROPERTIES(readStream(*stream));
    loaded();
  });
}

STDMETHODIMP Persistence::Save(IStream* stream, BOOL clear) noexcept {
  if (!stream) return E_POINTER;
  return guarded(IID_IPersistStreamInit, [&]() -> HRESULT {
    VTxt::PropertyBag bag;
    control_.box().USERCONTROL_WRITEPROPERTIES(bag);
    const std::string bytes = streamOf(bag);
    ULONG written = 0;
    const HRESULT result = stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written);
    if (FAILED(result)) return result;
    if (written != bytes.size()) return STG_E_MEDIUMFULL;
    saved(clear != FALSE);
    return S_OK;
  });
}

STDMETHODIMP Persistence::GetSizeMax(ULARGE_INTEGER* size) noexcept {
  if (!size) return E_POINTER;
  return guarded(IID_IPersistStreamInit, [&] {
    VTxt::PropertyBag bag;
    control_.box().USERCONTROL_WRITEPROPERTIES(bag);
    size->QuadPart = streamOf(bag).size();
  });
}

// --- property data ------------------------------------------------------------------------------

STDMETHODIMP Persistence::Load(IPropertyBag* bag, IErrorLog* log) noexcept {
  if (!bag) return E_POINTER;
  control_.logErrors("USERCONTROL_READPROPERTIES", [&] {
    VTxt::PropertyBag read;
    for (const Kept& kept : keptProperties) {
      Variant value;
      if (SUCCEEDED(bag->Read(wide(kept.name).c_str(), &value, log)) && !isNull(value)) {
        read[kept.name] = kept.isText ? asText(value) : std::to_string(asLong(value));
      }
    }
    control_.box().USERCONTROL_READPROPERTIES(read);
    loaded();
  });
  return S_OK;
}

STDMETHODIMP Persistence::Save(IPropertyBag* bag, BOOL clear, BOOL all) noexcept {
  if (!bag) return E_POINTER;
  return guarded(IID_IPersistPropertyBag, [&]() -> HRESULT {
    VTxt::PropertyBag changed;
    control_.box().USERCONTROL_WRITEPROPERTIES(changed);
    for (const Kept& kept : keptProperties) {
      if (!all && !changed.contains(kept.name)) continue;
      Variant value = kept.value(control_.box());
      const HRESULT result = bag->Write(wide(kept.name).c_str(), &value);
      if (FAILED(result)) return result;
    }
    saved(clear != FALSE);
    return S_OK;
  });
}

}  // namespace quillet::windows
