// Makes zip files in memory, workbooks of odd shapes among them.
#pragma once

#include <archive.h>
#include <archive_entry.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace quillet::support {

using Parts = std::vector<std::pair<std::string, std::string>>;  // name and content

inline std::string zipOf(const Parts& parts) {
  std::string bytes;
  archive* zip = archive_write_new();
  archive_write_set_format_zip(zip);
  archive_write_set_bytes_in_last_block(zip, 1);
  const auto append = [](archive*, void* to, const void* from, std::size_t size) {
    static_cast<std::string*>(to)->append(static_cast<const char*>(from), size);
    return static_cast<la_ssize_t>(size);
  };
  archive_write_open(zip, &bytes, nullptr, append, nullptr);
  for (const auto& [name, content] : parts) {
    archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname(entry, name.c_str());
    archive_entry_set_filetype(entry, AE_IFREG);
    archive_entry_set_perm(entry, 0600);
    archive_entry_set_size(entry, static_cast<la_int64_t>(content.size()));
    archive_write_header(zip, entry);
    archive_write_data(zip, content.data(), content.size());
    archive_entry_free(entry);
  }
  if (archive_write_close(zip) != ARCHIVE_OK) throw std::runtime_error("no zip file made");
  archive_write_free(zip);
  return bytes;
}

// The XML of the parts that differ from one workbook to the next.
struct WorkbookXml {
  std::string rows;          // inside <sheetData>
  std::string strings = "";  // inside <sst>
  std::string styles = "";   // inside <styleSheet>
  std::string beforeRows = "", afterRows = "";
  std::string properties = "";  // of the workbook
  std::string sheets = R"(<sheet name="TB" sheetId="1" r:id="r1"/>)";
  std::string space = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
  std::string relations = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
};

inline Parts workbookParts(const WorkbookXml& xml) {
  const std::string head = "<?xml version=\"1.0\"?>";
  const std::string main = " xmlns=\"" + xml.space + "\"";
  const auto relation = [&](const std::string& id, const std::string& kind, const std::string& to) {
    return "<Relationship Id=\"" + id + "\" Type=\"" + xml.relations + "/" + kind + "\" Target=\"" +
           to + "\"/>";
  };
  const std::string list =
      "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
  return {
      {"_rels/.rels",
       list + relation("r1", "officeDocument", "xl/workbook.xml") + "</Relationships>"},
      {"xl/worksheets/sheet1.xml", head + "<worksheet" + main + ">" + xml.beforeRows +
                                       "<sheetData>" + xml.rows + "</sheetData>" + xml.afterRows +
                                       "</worksheet>"},
      {"xl/workbook.xml", head + "<workbook" + main + " xmlns:r=\"" + xml.relations + "\">" +
                              xml.properties + "<sheets>" + xml.sheets + "</sheets></workbook>"},
      {"xl/_rels/workbook.xml.rels", list + relation("r1", "worksheet", "worksheets/sheet1.xml") +
                                         relation("r2", "sharedStrings", "/xl/sharedStrings.xml") +
                                         relation("r3", "styles", "../xl/./styles.xml") +
                                         relation("r4", "chartsheet", "chartsheets/sheet1.xml") +
                                         "</Relationships>"},
      {"xl/sharedStrings.xml", head + "<sst" + main + ">" + xml.strings + "</sst>"},
      {"xl/styles.xml", head + "<styleSheet" + main + ">" + xml.styles + "</styleSheet>"}};
}

// With a second sheet, "r4" by its relation, where a chart stands otherwise.
inline std::string workbookOfTwo(const WorkbookXml& xml, const std::string& secondRows) {
  Parts parts = workbookParts(xml);
  std::string& relations = parts[3].second;
  relations.replace(relations.find("/chartsheet\""), 12, "/worksheet\"");
  parts.emplace_back("xl/chartsheets/sheet1.xml",
                     "<worksheet><sheetData>" + secondRows + "</sheetData></worksheet>");
  return zipOf(parts);
}

inline std::string workbookOf(const WorkbookXml& xml) { return zipOf(workbookParts(xml)); }

}  // namespace quillet::support
