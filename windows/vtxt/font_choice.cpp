#include "windows/vtxt/font_choice.h"

#include <algorithm>
#include <utility>

#include "windows/com/errors.h"
#include "windows/com/text.h"
#include "windows/ui/dpi.h"

namespace quillet::windows {
namespace {

constexpr LONGLONG unitsOfPoint = 10000;  // a CY counts the ten-thousandths

Pointer<IFont> systemFont() {
  NONCLIENTMETRICSW system = systemMetrics(usualDpi);
  const LOGFONTW& message = system.lfMessageFont;
  FONTDESC description{};
  description.cbSizeofstruct = sizeof description;
  description.lpstrName = system.lfMessageFont.lfFaceName;
  description.cySize.int64 =
      std::abs(static_cast<LONGLONG>(message.lfHeight)) * 72 * unitsOfPoint / usualDpi;
  description.sWeight = static_cast<SHORT>(message.lfWeight);
  description.sCharset = message.lfCharSet;
  Pointer<IFont> font;
  OleCreateFontIndirect(&description, IID_IFont, font.putVoid());
  return font;
}

Pointer<IConnectionPoint> changesOf(const Pointer<IFont>& font) {
  Pointer<IConnectionPoint> point;
  if (const auto points = font.query<IConnectionPointContainer>()) {
    points->FindConnectionPoint(IID_IPropertyNotifySink, point.put());
  }
  return point;
}

}  // namespace

// May outlive the font's owner in the hands of the font.
class FontChoice::Listener final : public IPropertyNotifySink {
 public:
  explicit Listener(std::function<void()> changed) : changed_(std::move(changed)) {}
  void stop() { changed_ = {}; }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = iid == IID_IUnknown || iid == IID_IPropertyNotifySink ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP OnChanged(DISPID) noexcept override {
    return guarded(IID_IPropertyNotifySink, [&] {
      if (changed_) changed_();
    });
  }
  STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

 private:
  ~Listener() = default;

  std::function<void()> changed_;
  ULONG references_ = 1;
};

FontChoice::FontChoice(const ControlSite& site, std::function<void()> changed)
    : site_(site), listener_(Pointer<Listener>::attach(new Listener(std::move(changed)))) {}

FontChoice::~FontChoice() {
  listener_->stop();
  letGo();
}

void FontChoice::letGo() {
  if (!font_) return;
  if (const auto point = changesOf(font_); point && connection_ != 0) point->Unadvise(connection_);
  font_ = {};
  connection_ = 0;
}

void FontChoice::keep(IFont* original) {
  Pointer<IFont> copy;
  if (!original || FAILED(original->Clone(copy.put()))) copy = systemFont();
  letGo();
  font_ = copy;
  if (!font_) return;
  if (const auto point = changesOf(font_)) point->Advise(listener_.get(), &connection_);
}

const Pointer<IFont>& FontChoice::font() {
  if (!font_) {
    const auto ambient = site_.ambient(DISPID_AMBIENT_FONT);
    keep(ambient ? asObject(*ambient).query<IFont>().get() : nullptr);
  }
  return font_;
}

Pointer<IFontDisp> FontChoice::get() {
  // Whoever has it in hand may change it: it is this control's own from now on.
  chosen_ = true;
  return font().query<IFontDisp>();
}

void FontChoice::set(IFontDisp* chosen) {
  Pointer<IFont> original;
  if (chosen) chosen->QueryInterface(IID_IFont, original.putVoid());
  if (!original) throw errorOf(E_INVALIDARG, "VTxt.Font");
  keep(original.get());
  chosen_ = true;
}

void FontChoice::ambientChanged() {
  if (!chosen_) letGo();
}

HFONT FontChoice::create(UINT dpi) {
  const Pointer<IFont>& font = this->font();
  if (!font) return nullptr;
  CY size{};
  SHORT weight = FW_NORMAL, charset = DEFAULT_CHARSET;
  BOOL italic = FALSE, underline = FALSE, strikethrough = FALSE;
  BSTR name = nullptr;
  font->get_Size(&size);
  font->get_Weight(&weight);
  font->get_Charset(&charset);
  font->get_Italic(&italic);
  font->get_Underline(&underline);
  font->get_Strikethrough(&strikethrough);
  font->get_Name(&name);

  LOGFONTW wanted{};
  wanted.lfHeight = -MulDiv(static_cast<int>(size.int64), static_cast<int>(dpi), 72 * unitsOfPoint);
  wanted.lfWeight = weight;
  wanted.lfCharSet = static_cast<BYTE>(charset);
  wanted.lfItalic = italic != FALSE;
  wanted.lfUnderline = underline != FALSE;
  wanted.lfStrikeOut = strikethrough != FALSE;
  if (name) lstrcpynW(wanted.lfFaceName, name, LF_FACESIZE);
  SysFreeString(name);
  return CreateFontIndirectW(&wanted);
}

}  // namespace quillet::windows
