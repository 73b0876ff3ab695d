#include "suite/sheets/shared_texts.h"

#include <charconv>
#include <utility>

#include "data/text.h"
#include "ports/source_book.h"

namespace quillet::suite {
namespace {

// Far above what a workbook of 64 MB has when it is not made to fill the memory.
constexpr std::size_t mostTexts = 2'000'000;

}  // namespace

void RichTextReader::begin(std::string_view name, const XmlAttributes& attributes) {
  if (name == "t") inText_ = !inReading_;
  if (name == "rPh") inReading_ = true;
  if (name == "b") runIsBold_ = attributes.flag("val", true);
}

void RichTextReader::end(std::string_view name) {
  if (name == "t") inText_ = false;
  if (name == "rPh") inReading_ = false;
  if (name == "r") endRun();
}

void RichTextReader::text(std::string_view text) {
  if (inText_) run_ += text;
}

void RichTextReader::endRun() {
  if (!run_.empty()) (runIsBold_ ? anyBold_ : anyPlain_) = true;
  whole_.text += run_;
  run_.clear();
  runIsBold_ = false;
}

RichText RichTextReader::take() {
  endRun();
  whole_.bold = anyBold_ && !anyPlain_;
  whole_.text = withoutEscapes(std::move(whole_.text));
  RichText whole = std::move(whole_);
  *this = RichTextReader();
  return whole;
}

std::string withoutEscapes(std::string text) {
  constexpr std::size_t length = 7;
  if (text.find("_x") == std::string::npos) return text;
  std::string plain;
  for (std::size_t at = 0; at < text.size();) {
    unsigned character = 0;
    const char* digits = text.data() + at + 2;
    if (text.compare(at, 2, "_x") != 0 || at + length > text.size() || text[at + 6] != '_' ||
        std::from_chars(digits, digits + 4, character, 16).ptr != digits + 4) {
      plain += text[at++];
      continue;
    }
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (character != 0 && !surrogate) appendCharacter(plain, character);
    at += length;
  }
  return plain;
}

const RichText* SharedTexts::at(std::size_t index) const {
  return index < texts_.size() ? &texts_[index] : nullptr;
}

void SharedTexts::begin(std::string_view name, const XmlAttributes& attributes) {
  if (name == "si") reader_ = RichTextReader();
  reader_.begin(name, attributes);
}

void SharedTexts::end(std::string_view name) {
  reader_.end(name);
  if (name != "si") return;
  if (texts_.size() == mostTexts) throw SourceError("has far more texts than a trial balance.");
  texts_.push_back(reader_.take());
}

}  // namespace quillet::suite
