#include "windows/vtxt/font_choice.h"

#include <utility>

#include "windows/com/errors.h"

namespace quillet::windows {
namespace {

// A CY counts ten-thousandths, here of points.
constexpr int sizeUnitsOfInch = 72 * 10000;

}  // namespace

FontChoice::FontChoice(const ControlSite& site, std::function<void()> changed)
    : site_(site), changes_(std::move(changed)) {}

void FontChoice::keep(IFont* original) {
  Pointer<IFont> copy;
  if (!original || FAILED(original->Clone(copy.put()))) copy = newSystemFont();
  font_ = copy;
  changes_.follow(font_);
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
  if (chosen_) return;
  font_ = {};
  changes_.follow(font_);
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
  wanted.lfHeight = -MulDiv(static_cast<int>(size.int64), static_cast<int>(dpi), sizeUnitsOfInch);
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
