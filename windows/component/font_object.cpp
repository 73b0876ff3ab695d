#include "windows/component/font_object.h"

#include "windows/com/errors.h"
#include "windows/com/text.h"
#include "windows/ui/dpi.h"

namespace quillet::windows {
namespace {

constexpr const char* source = "PrjQuillet.Font";

void require(HRESULT result) {
  if (FAILED(result)) throw errorOf(result, source);
}

// Sizes are ten-thousandths.
CY currency(double points) {
  CY amount;
  amount.int64 = static_cast<LONGLONG>(points * 10000 + 0.5);
  return amount;
}

Pointer<IFont> systemFont() {
  const NONCLIENTMETRICSW system = systemMetrics(usualDpi);
  const LOGFONTW& face = system.lfMessageFont;
  FONTDESC wanted{};
  wanted.cbSizeofstruct = sizeof wanted;
  wanted.lpstrName = const_cast<LPOLESTR>(face.lfFaceName);
  wanted.cySize = currency(std::abs(face.lfHeight) * 72.0 / usualDpi);
  wanted.sWeight = static_cast<SHORT>(face.lfWeight);
  wanted.sCharset = face.lfCharSet;
  Pointer<IFont> font;
  require(OleCreateFontIndirect(&wanted, IID_IFont, font.putVoid()));
  return font;
}

}  // namespace

class FontObject::Sink final : public IPropertyNotifySink {
 public:
  explicit Sink(std::function<void()> changed) : changed_(std::move(changed)) {}

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
    try {
      if (changed_) changed_();
    } catch (...) {
      // The font stands; only what follows it did not.
    }
    return S_OK;
  }
  STDMETHODIMP OnRequestEdit(DISPID) noexcept override { return S_OK; }

  void letGo() { changed_ = {}; }

 private:
  ~Sink() = default;

  std::function<void()> changed_;
  ULONG references_ = 1;
};

FontObject::FontObject(std::function<void()> changed)
    : font_(systemFont()), sink_(Pointer<Sink>::attach(new Sink(std::move(changed)))) {
  const auto container = font_.query<IConnectionPointContainer>();
  if (container &&
      SUCCEEDED(container->FindConnectionPoint(IID_IPropertyNotifySink, source_.put())))
    source_->Advise(sink_.get(), &cookie_);
}

FontObject::~FontObject() {
  sink_->letGo();  // a host may keep the font
  if (source_) source_->Unadvise(cookie_);
}

Pointer<IDispatch> FontObject::object() const { return font_.query<IDispatch>(); }

void FontObject::assign(IDispatch* other) {
  const auto font = Pointer<IDispatch>(other).query<IFont>();
  if (!font) throw errorOf(DISP_E_TYPEMISMATCH, source);
  BSTR name = nullptr;
  CY size{};
  require(font->get_Size(&size));
  require(font->get_Name(&name));
  const HRESULT named = font_->put_Name(name);
  SysFreeString(name);
  require(named);
  require(font_->put_Size(size));
}

std::string FontObject::name() const {
  BSTR name = nullptr;
  require(font_->get_Name(&name));
  const std::string text = fromBstr(name);
  SysFreeString(name);
  return text;
}

void FontObject::setName(const std::string& name) {
  BSTR text = newBstr(name);
  const HRESULT result = font_->put_Name(text);
  SysFreeString(text);
  require(result);
}

double FontObject::points() const {
  CY size{};
  require(font_->get_Size(&size));
  return static_cast<double>(size.int64) / 10000;
}

void FontObject::setPoints(double points) {
  if (!(points >= 1 && points <= 1000)) throw errorOf(E_INVALIDARG, source);
  require(font_->put_Size(currency(points)));
}

}  // namespace quillet::windows
