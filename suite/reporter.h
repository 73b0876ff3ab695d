// The suite's report component: collects what the module writes into a document and shows it.
#pragma once

#include <functional>

#include "ports/ports.h"
#include "suite/document.h"

namespace quillet::suite {

class DocumentReporter : public Reporter {
 public:
  // `show` receives each finished report.
  explicit DocumentReporter(std::function<void(const Document&)> show) : show_(std::move(show)) {}

  // Reports are always shown in a window first; a person prints from there.
  void WinModeReport(bool) override {}
  void NewReport() override { document_ = {}; }
  void printtext(const std::string& text) override { document_.addHeading(text); }
  void CreateTable(int, int) override { document_.beginTable(); }
  void WriteToReport(std::vector<std::string>& values, std::vector<Align>& alignments,
                     std::vector<long>& widths, std::vector<std::string>& before,
                     std::vector<std::string>& after, bool& heading, std::string& rules,
                     std::string& emphasis, std::string& last, std::string& printed) override;
  void ShowReport() override { show_(document_); }

 private:
  std::function<void(const Document&)> show_;
  Document document_;
};

}  // namespace quillet::suite
