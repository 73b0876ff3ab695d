#include "windows/component/control_list.h"

#include "windows/component/enumerator.h"
#include "windows/component/form_object.h"
#include "windows/component/members.h"

namespace quillet::windows {
namespace {

enum Id : DISPID { countId = 1, itemId, lowestId, highestId };

void handOut(const Variant& object, VARIANT* to) { Variant(object).moveTo(to); }

}  // namespace

std::vector<Control*> ControlList::controls() const {
  std::vector<Control*> found;
  for (Control* control : form_->form().controls()) {
    if (name_.empty() || equalIgnoringCase(control->name(), name_)) found.push_back(control);
  }
  return found;
}

Control& ControlList::find(const VARIANT& which) const {
  const std::vector<Control*> all = controls();
  if (Variant::copyOf(which).vt == VT_BSTR && name_.empty()) {
    Control* named = form_->form().find(asText(which));
    if (named) return *named;
  } else {
    const int at = numberArgument(which);
    for (std::size_t position = 0; position < all.size(); ++position) {
      const int index = name_.empty() ? static_cast<int>(position) : all[position]->index();
      if (index == at) return *all[position];
    }
  }
  throw errorOf(DISP_E_BADINDEX, "PrjQuillet.Controls");
}

Variant ControlList::item(const Call& call) const {
  if (call.count() != 1) throw errorOf(DISP_E_BADPARAMCOUNT, "PrjQuillet.Controls");
  Control& control = find(call[0]);
  const Pointer<IDispatch> object = form_->objectOf(control);
  if (!call.sets()) return Variant(object);
  DISPID put = DISPID_PROPERTYPUT;
  VARIANT value = call.value();
  DISPPARAMS parameters{&value, &put, 1, 1};
  ExceptionInfo error;
  const HRESULT result = object->Invoke(DISPID_VALUE, IID_NULL, callLocale, DISPATCH_PROPERTYPUT,
                                        &parameters, nullptr, &error, nullptr);
  if (FAILED(result)) throw errorOf(result, error, "PrjQuillet.Controls");
  return {};
}

Variant ControlList::each() const {
  std::vector<Variant> objects;
  for (Control* control : controls()) objects.emplace_back(form_->objectOf(*control));
  Variant result;
  result.vt = VT_UNKNOWN;
  result.punkVal = new Enumerator<IEnumVARIANT, VARIANT, Variant, handOut>(std::move(objects));
  return result;
}

std::optional<DISPID> ControlList::idOf(const std::string& name) {
  if (equalIgnoringCase(name, "Count")) return countId;
  if (equalIgnoringCase(name, "Item")) return itemId;
  if (equalIgnoringCase(name, "LBound")) return lowestId;
  if (equalIgnoringCase(name, "UBound")) return highestId;
  return std::nullopt;
}

Variant ControlList::invoke(DISPID id, const Call& call) {
  if (id == DISPID_VALUE || id == itemId) return item(call);
  if (call.sets()) throw errorOf(DISP_E_MEMBERNOTFOUND, "PrjQuillet.Controls");
  if (call.count() > 0) throw errorOf(DISP_E_BADPARAMCOUNT, "PrjQuillet.Controls");
  const int count = static_cast<int>(controls().size());
  switch (id) {
    case countId:
      return Variant(count);
    case lowestId:
      return Variant(0);
    case highestId:
      return Variant(count - 1);
    case DISPID_NEWENUM:
      return each();
    default:
      throw errorOf(DISP_E_MEMBERNOTFOUND, "PrjQuillet.Controls");
  }
}

}  // namespace quillet::windows
