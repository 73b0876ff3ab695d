#include "windows/component/font_object.h"

#include "windows/com/errors.h"
#include "windows/com/text.h"

namespace quillet::windows {
namespace {

constexpr const char* source = "PrjQuillet.Font";

void require(HRESULT result) {
  if (FAILED(result)) throw errorOf(result, source);
}

}  // namespace

FontObject::FontObject(std::function<void()> changed)
    : font_(newSystemFont()), changes_(std::move(changed)) {
  changes_.follow(font_);
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
  require(font_->put_Size(pointsAsCurrency(points)));
}

}  // namespace quillet::windows
