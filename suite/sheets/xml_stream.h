// Reads an XML text piece by piece and tells its elements. Nothing outside the text is ever
// fetched, and a text that declares entities of its own is refused.
#pragma once

#include <expat.h>

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "suite/sheets/zip_file.h"

namespace quillet::suite {

class XmlAttributes {
 public:
  explicit XmlAttributes(const char** all) : all_(all) {}
  // "" when there is none. Without its namespace: "id" for "r:id".
  std::string_view get(std::string_view name) const;
  bool has(std::string_view name) const;
  // "1" or "true"; `otherwise` when there is none.
  bool flag(std::string_view name, bool otherwise = false) const;
  int number(std::string_view name, int otherwise = 0) const;

 private:
  const char** all_;
};

// What wants to know the elements. Names are without the namespace's prefix; elements of foreign
// namespaces are told as "".
class XmlElements {
 public:
  virtual ~XmlElements() = default;
  virtual void begin(std::string_view name, const XmlAttributes& attributes) = 0;
  virtual void end(std::string_view /*name*/) {}
  virtual void text(std::string_view /*text*/) {}
};

class XmlStream {
 public:
  explicit XmlStream(XmlElements& elements);

  // Throws SourceError for what is no XML, and what the elements throw.
  void feed(std::string_view piece);
  void finish();

 private:
  struct Free {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
  };
  void parse(std::string_view piece, bool last);
  template <class Tell>
  void guarded(const Tell& tell);
  static void XMLCALL begins(void* self, const char* name, const char** attributes);
  static void XMLCALL ends(void* self, const char* name);
  static void XMLCALL tells(void* self, const char* text, int length);
  static void XMLCALL declares(void* self, const char*, const char*, const char*, int);

  XmlElements& elements_;
  std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> parser_;
  std::exception_ptr thrown_;  // an exception does not pass through the parser
};

// A part of a workbook; false when it has none of this name, or when `goesOn`, told which share of
// it has been read, has ended the reading. Without `goesOn` it has to be a small one.
bool readXml(const ZipFile& zip, const std::string& part, XmlElements& elements,
             const std::function<bool(double share)>& goesOn = {});

}  // namespace quillet::suite
