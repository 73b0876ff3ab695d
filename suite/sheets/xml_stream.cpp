#include "suite/sheets/xml_stream.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <new>
#include <utility>

#include "ports/source_book.h"

namespace quillet::suite {
namespace {

constexpr char separator = '|';

std::string_view local(std::string_view name) {
  const auto at = name.rfind(separator);
  return at == std::string_view::npos ? name : name.substr(at + 1);
}

// Those of workbooks, of both editions of their standard, and of the lists in their packages.
bool isKnown(std::string_view name) {
  const auto at = name.rfind(separator);
  if (at == std::string_view::npos) return true;
  const std::string_view space = name.substr(0, at);
  return space.ends_with("spreadsheetml/2006/main") || space.ends_with("spreadsheetml/main") ||
         space.ends_with("package/2006/relationships");
}

[[noreturn]] void damaged() {
  throw SourceError(
      "is damaged: what is in it does not follow the rules of a workbook. Open it in a spreadsheet "
      "program and save it again.");
}

}  // namespace

std::string_view XmlAttributes::get(std::string_view name) const {
  for (const char** at = all_; *at != nullptr; at += 2) {
    if (local(at[0]) == name) return at[1];
  }
  return {};
}

bool XmlAttributes::has(std::string_view name) const { return get(name).data() != nullptr; }

bool XmlAttributes::flag(std::string_view name, bool otherwise) const {
  return has(name) ? get(name) == "1" || get(name) == "true" || get(name) == "on" : otherwise;
}

int XmlAttributes::number(std::string_view name, int otherwise) const {
  const std::string_view text = get(name);
  int number = otherwise;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

XmlStream::XmlStream(XmlElements& elements)
    : elements_(elements), parser_(XML_ParserCreateNS(nullptr, separator)) {
  if (!parser_) throw std::bad_alloc();
  XML_SetUserData(parser_.get(), this);
  XML_SetElementHandler(parser_.get(), &begins, &ends);
  XML_SetCharacterDataHandler(parser_.get(), &tells);
  XML_SetStartDoctypeDeclHandler(parser_.get(), &declares);
}

void XmlStream::feed(std::string_view piece) {
  // The parser counts in int.
  constexpr std::size_t most = INT_MAX / 2;
  for (; piece.size() > most; piece.remove_prefix(most)) parse(piece.substr(0, most), false);
  parse(piece, false);
}

void XmlStream::finish() { parse({}, true); }

void XmlStream::parse(std::string_view piece, bool last) {
  const auto status =
      XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()), last ? 1 : 0);
  if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
  if (status != XML_STATUS_OK) damaged();
}

template <class Tell>
void XmlStream::guarded(const Tell& tell) {
  if (thrown_) return;
  try {
    tell();
  } catch (...) {
    thrown_ = std::current_exception();
    XML_StopParser(parser_.get(), XML_FALSE);
  }
}

void XmlStream::begins(void* self, const char* name, const char** attributes) {
  auto& stream = *static_cast<XmlStream*>(self);
  stream.guarded(
      [&] { stream.elements_.begin(isKnown(name) ? local(name) : "", XmlAttributes(attributes)); });
}

void XmlStream::ends(void* self, const char* name) {
  auto& stream = *static_cast<XmlStream*>(self);
  stream.guarded([&] { stream.elements_.end(isKnown(name) ? local(name) : ""); });
}

void XmlStream::tells(void* self, const char* text, int length) {
  auto& stream = *static_cast<XmlStream*>(self);
  stream.guarded([&] { stream.elements_.text({text, static_cast<std::size_t>(length)}); });
}

void XmlStream::declares(void* self, const char*, const char*, const char*, int) {
  static_cast<XmlStream*>(self)->guarded(&damaged);
}

bool readXml(const ZipFile& zip, const std::string& part, XmlElements& elements,
             const std::function<bool(double share)>& goesOn) {
  XmlStream stream(elements);
  double read = 0;
  bool whole = true;
  const auto take = [&](std::string_view piece, double size) {
    stream.feed(piece);
    read += static_cast<double>(piece.size());
    whole = !goesOn || goesOn(size > 0 ? std::min(read / size, 1.0) : 0);
    return whole;
  };
  const bool found = zip.read(part, take, goesOn ? largestSheet : largestList);
  if (found && whole) stream.finish();
  return found && whole;
}

}  // namespace quillet::suite
