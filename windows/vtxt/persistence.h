// The five properties that a container keeps with its form: as a stream of bytes, or by name in its
// property data.
#pragma once

#include <ocidl.h>

#include "windows/vtxt/control_part.h"

namespace quillet::windows {

class Persistence final : public ControlPart<IPersistStreamInit, IPersistPropertyBag> {
 public:
  using ControlPart::ControlPart;

  // Something was changed that is to be saved.
  void touch() { changed_ = true; }

  STDMETHODIMP GetClassID(CLSID* clsid) noexcept override;
  STDMETHODIMP InitNew() noexcept override;

  STDMETHODIMP IsDirty() noexcept override { return changed_ ? S_OK : S_FALSE; }
  STDMETHODIMP Load(IStream* stream) noexcept override;
  STDMETHODIMP Save(IStream* stream, BOOL clear) noexcept override;
  STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) noexcept override;

  STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
  STDMETHODIMP Save(IPropertyBag* bag, BOOL clear, BOOL all) noexcept override;

 private:
  void loaded();
  void saved(bool clear);

  bool changed_ = false;
};

}  // namespace quillet::windows
