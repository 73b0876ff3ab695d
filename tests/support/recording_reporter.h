// A reporter that keeps every call as a line of text and passes it on to the real one.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/context.h"

namespace quillet::support {

// Printer codes as words, so that a failing test can be read.
inline std::string readable(const std::string& text) {
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\x1B' && i + 1 < text.size() && text[i + 1] >= ' ') {
      shown += std::string("<ESC ") + text[++i] + '>';
    } else if (text[i] == '\x1B') {
      shown += "<ESC>";
    } else if (text[i] == '\x12') {
      shown += "<DC2>";
    } else {
      shown += text[i];
    }
  }
  return shown;
}

class RecordingReporter : public Reporter {
 public:
  // Takes the context's place of the reporter for as long as it lives.
  class Recording {
   public:
    explicit Recording(Context& context) : context_(context) {
      auto recorder = std::make_unique<RecordingReporter>(std::move(context.reporter));
      recorder_ = recorder.get();
      context.reporter = std::move(recorder);
    }
    ~Recording() { context_.reporter = std::move(recorder_->real_); }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;
    const std::vector<std::string>& calls() const { return recorder_->calls_; }

   private:
    Context& context_;
    RecordingReporter* recorder_;
  };

  explicit RecordingReporter(std::unique_ptr<Reporter> real) : real_(std::move(real)) {}

  void WinModeReport(bool windowMode) override {
    calls_.push_back(std::string("WinModeReport ") + (windowMode ? "True" : "False"));
    real_->WinModeReport(windowMode);
  }
  void NewReport() override {
    calls_.emplace_back("NewReport");
    real_->NewReport();
  }
  void printtext(const std::string& text) override {
    calls_.push_back("printtext " + readable(text));
    real_->printtext(text);
  }
  void CreateTable(int firstColumn, int columns) override {
    calls_.push_back("CreateTable " + std::to_string(firstColumn) + "," + std::to_string(columns));
    real_->CreateTable(firstColumn, columns);
  }
  void WriteToReport(std::vector<std::string>& values, std::vector<Align>& alignments,
                     std::vector<long>& widths, std::vector<std::string>& before,
                     std::vector<std::string>& after, bool& heading, std::string& rules,
                     std::string& emphasis, std::string& last, std::string& printed) override {
    std::string row;
    for (std::size_t i = 0; i < values.size(); ++i) {
      row += (i > 0 ? "|" : "") + readable(before.at(i) + values[i] + after.at(i));
    }
    calls_.push_back(row + " " + rules + " " + emphasis + " " + last + " " + printed);
    real_->WriteToReport(values, alignments, widths, before, after, heading, rules, emphasis, last,
                         printed);
  }
  void ShowReport() override {
    calls_.emplace_back("ShowReport");
    real_->ShowReport();
  }

 private:
  std::unique_ptr<Reporter> real_;
  std::vector<std::string> calls_;
};

}  // namespace quillet::support
