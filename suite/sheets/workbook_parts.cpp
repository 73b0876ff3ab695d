#include "suite/sheets/workbook_parts.h"

#include <map>

#include "ports/source_book.h"
#include "suite/sheets/xml_stream.h"

namespace quillet::suite {
namespace {

// The target of a relation as the path of a part: "../a" relative to "x/y/" is "x/a".
std::string resolved(const std::string& folder, std::string target) {
  if (target.starts_with('/')) return target.substr(1);
  std::string path = folder;
  while (!target.empty()) {
    const auto end = target.find('/');
    const std::string step = target.substr(0, end);
    if (step == "..") {
      const auto above = path.size() < 2 ? std::string::npos : path.rfind('/', path.size() - 2);
      path.erase(above == std::string::npos ? 0 : above + 1);
    } else if (step != ".") {
      path += step + (end == std::string::npos ? "" : "/");
    }
    target.erase(0, end == std::string::npos ? end : end + 1);
  }
  return path;
}

class Relations : public XmlElements {
 public:
  Relations(const ZipFile& zip, const std::string& part) {
    const auto slash = part.rfind('/');
    folder_ = slash == std::string::npos ? "" : part.substr(0, slash + 1);
    readXml(zip, folder_ + "_rels/" + part.substr(folder_.size()) + ".rels", *this);
  }

  // "" when there is none.
  std::string ofKind(const std::string& kind) const {
    const auto found = byKind_.find(kind);
    return found == byKind_.end() ? "" : found->second;
  }
  std::string ofKind(const std::string& kind, std::string_view id) const {
    const auto found = byId_.find(std::string(id));
    return found == byId_.end() || found->second.first != kind ? "" : found->second.second;
  }

 private:
  void begin(std::string_view name, const XmlAttributes& attributes) override {
    if (name != "Relationship") return;
    const std::string type(attributes.get("Type"));
    const std::string kind = type.substr(type.rfind('/') + 1);
    const std::string part = resolved(folder_, std::string(attributes.get("Target")));
    byKind_.emplace(kind, part);
    byId_.emplace(attributes.get("Id"), std::pair(kind, part));
  }

  std::string folder_;
  std::map<std::string, std::string> byKind_;
  std::map<std::string, std::pair<std::string, std::string>> byId_;  // kind and part
};

class WorkbookElements : public XmlElements {
 public:
  WorkbookElements(WorkbookParts& parts, const Relations& relations)
      : parts_(parts), relations_(relations) {}
  bool isWorkbook() const { return isWorkbook_; }

 private:
  void begin(std::string_view name, const XmlAttributes& attributes) override {
    if (name == "workbook") isWorkbook_ = true;
    if (name == "workbookPr") parts_.from1904 = attributes.flag("date1904");
    if (name == "calcPr") parts_.calculatesFirst = attributes.flag("fullCalcOnLoad");
    if (name != "sheet") return;
    const std::string part = relations_.ofKind("worksheet", attributes.get("id"));
    if (part.empty()) return;  // a chart for instance
    const std::string_view state = attributes.get("state");
    parts_.sheets.push_back(
        {std::string(attributes.get("name")), part, state == "hidden" || state == "veryHidden"});
  }

  WorkbookParts& parts_;
  const Relations& relations_;
  bool isWorkbook_ = false;
};

}  // namespace

WorkbookParts workbookParts(const ZipFile& zip) {
  const std::string named = Relations(zip, "").ofKind("officeDocument");
  const std::string workbook = named.empty() ? "xl/workbook.xml" : named;
  const Relations relations(zip, workbook);
  WorkbookParts parts;
  parts.strings = relations.ofKind("sharedStrings");
  parts.styles = relations.ofKind("styles");
  WorkbookElements elements(parts, relations);
  if (!readXml(zip, workbook, elements) || !elements.isWorkbook()) {
    throw SourceError("is no workbook but another kind of file. Choose a workbook or a text file.");
  }
  return parts;
}

}  // namespace quillet::suite
