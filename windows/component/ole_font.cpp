#include "windows/component/ole_font.h"

#include <cmath>
#include <utility>

#include "windows/com/counted.h"
#include "windows/com/errors.h"
#include "windows/ui/dpi.h"

namespace quillet::windows {

CY pointsAsCurrency(double points) {
  CY amount;
  amount.int64 = std::llround(points * 10000);
  return amount;
}

Pointer<IFont> newSystemFont() {
  const NONCLIENTMETRICSW system = systemMetrics(usualDpi);
  const LOGFONTW& face = system.lfMessageFont;
  FONTDESC wanted{};
  wanted.cbSizeofstruct = sizeof wanted;
  wanted.lpstrName = const_cast<LPOLESTR>(face.lfFaceName);
  wanted.cySize = pointsAsCurrency(std::abs(face.lfHeight) * 72.0 / usualDpi);
  wanted.sWeight = static_cast<SHORT>(face.lfWeight);
  wanted.sCharset = face.lfCharSet;
  Pointer<IFont> font;
  const HRESULT result = OleCreateFontIndirect(&wanted, IID_IFont, font.putVoid());
  if (FAILED(result)) throw errorOf(result, "PrjQuillet.Font");
  return font;
}

// The font may hold it for longer than its owner lives.
class FontChanges::Listener final : public Counted<IPropertyNotifySink> {
 public:
  explicit Listener(std::function<void()> changed) : changed_(std::move(changed)) {}
  void letGo() { changed_ = {}; }

  STDMETHODIMP OnChanged(DISPID) noexcept override {
    // The font stands; only what follows it may not.
    guarded(IID_IPropertyNotifySink, [&] {
      if (changed_) changed_();
    });
    return S_OK;
  }
  STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

 private:
  std::function<void()> changed_;
};

FontChanges::FontChanges(std::function<void()> changed)
    : listener_(Pointer<Listener>::attach(new Listener(std::move(changed)))) {}

FontChanges::~FontChanges() {
  listener_->letGo();
  follow({});
}

void FontChanges::follow(const Pointer<IFont>& font) {
  if (point_) point_->Unadvise(cookie_);
  point_ = {};
  const auto points = font.query<IConnectionPointContainer>();
  if (!points) return;
  Pointer<IConnectionPoint> point;
  points->FindConnectionPoint(IID_IPropertyNotifySink, point.put());
  if (point && SUCCEEDED(point->Advise(listener_.get(), &cookie_))) point_ = point;
}

}  // namespace quillet::windows
