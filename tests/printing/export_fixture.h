// An editor to be exported, a template, and a place for the workbook.
#pragma once

#include <fstream>
#include <sstream>

#include "printing/many_lines.h"

namespace quillet::support {

namespace fs = std::filesystem;
using suite::CalcOptions;

inline std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}
inline void write(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

class ExportTest : public ManyLinesTest {
 protected:
  ExportTest() {
    write(template_, "the template");
    addYear("C1", 2007, {{"Old", "CAPITAL", 3}});
    addYear("C1", 2008, {{"=1+1", "BANKS", 12'345.6}, {"@x", "SALES", -0.05}});
  }
  ~ExportTest() override {
    fs::remove(template_);
    practice.environment().useCalc(CalcOptions::standard());
  }

  // The messages. An empty path cancels the dialog.
  Texts run(frmcrtb& form, const fs::path& file, const std::optional<fs::path>& then = {}) {
    for (const fs::path& next : then ? std::vector{file, *then} : std::vector{file}) {
      dialogs.queueFile(next.empty() ? std::nullopt : std::optional(next.string()));
    }
    EXPECT_TRUE(form.click(form.cmdexport));
    Texts texts;
    for (const auto& asked : dialogs.takeMessages()) {
      EXPECT_EQ(asked.message.title, "Trial Balance");
      EXPECT_EQ(asked.message.icon,
                asked.message.buttons == Buttons::OK ? Icon::information : Icon::none);
      texts.push_back(asked.message.text);
    }
    return texts;
  }
  static std::string exportedTo(const fs::path& file) {
    return "Data Successfully Exported to File : " + file.string();
  }
  // That it failed is told, the target holds what it held, and nothing of ours is left beside it.
  void expectRefused(frmcrtb& form, const std::string& ending = "") {
    write(target_, "mine");
    yes();
    const std::string message = run(form, target_).back();
    EXPECT_TRUE(message.starts_with("Error Occured : ")) << message;
    EXPECT_TRUE(message.ends_with(ending)) << message;
    EXPECT_EQ(contentOf(target_), "mine");
    expectClean();
  }
  void expectClean() const {
    for (const auto& entry : fs::directory_iterator(target_.parent_path())) {
      EXPECT_EQ(entry.path().filename().string().find(".quillet"), std::string::npos);
    }
    EXPECT_FALSE(frontEnd.busy);
  }

  TemporaryFolder folder_;
  fs::path template_ = practice.folder().program() / "Databases" / "ORVO_TB.xls";
  fs::path target_ = folder_.path() / "books.xls";
};

}  // namespace quillet::support
