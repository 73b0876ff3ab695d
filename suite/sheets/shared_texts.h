// The texts of a workbook's cells: formatted pieces put together, readings of foreign letters left
// out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "suite/sheets/xml_stream.h"

namespace quillet::suite {

struct RichText {
  std::string text;
  bool bold = false;  // all its pieces are
};

// Collects one text from the elements inside <si> or <is>.
class RichTextReader {
 public:
  void begin(std::string_view name, const XmlAttributes& attributes);
  void end(std::string_view name);
  void text(std::string_view text);
  // The text, and ready for the next one.
  RichText take();

 private:
  void endRun();

  RichText whole_;
  std::string run_;
  bool inText_ = false;
  bool inReading_ = false;
  bool runIsBold_ = false;
  bool anyPlain_ = false;
  bool anyBold_ = false;
};

// "_x000D_" stands for a character that XML has not.
std::string withoutEscapes(std::string text);

class SharedTexts : public XmlElements {
 public:
  // Null when there is none of this number.
  const RichText* at(std::size_t index) const;

 private:
  void begin(std::string_view name, const XmlAttributes& attributes) override;
  void end(std::string_view name) override;
  void text(std::string_view text) override { reader_.text(text); }

  RichTextReader reader_;
  std::vector<RichText> texts_;
};

}  // namespace quillet::suite
