// The files that go with a year, and those that must not.
#include <fstream>

#include "years/years_fixture.h"

namespace quillet::support {
namespace {

namespace fs = std::filesystem;

class YearFilesTest : public YearsTest {
 protected:
  YearFilesTest() {
    fs::remove_all(documents());
    fs::create_directories(documents());
  }
  fs::path documents() { return practice.folder().documents(); }
  void put(const std::string& name) {
    fs::create_directories((documents() / name).parent_path());
    std::ofstream(documents() / name) << "x";
  }
  void putAll(const Texts& names) {
    for (const std::string& name : names) put(name);
  }
  // Every file and link below the folder, ordered, but for those that are kept for a while.
  static Texts files(const fs::path& folder) {
    Texts names;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      if (entry.symlink_status().type() == fs::file_type::directory) continue;
      const std::string name = entry.path().lexically_relative(folder).generic_string();
      if (!name.starts_with("Deleted/")) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  // Deletes the client's year 2008-2009 with its miscellaneous forms.
  void deleteMisc(const std::string& client) {
    exec("delete from master");
    addYear(client, 2008);
    remove(0, client);
    EXPECT_EQ(value("select count(*) from master"), "0") << "files never stop the tables";
  }
};

using Names = std::vector<std::string>;

Names below(const std::vector<std::pair<std::string, Names>>& folders) {
  Names all;
  for (const auto& [folder, names] : folders) {
    for (const std::string& name : names) all.push_back(folder + '/' + name);
  }
  return all;
}

const Names filesOfC1 =
    below({{"Annex3CD/C1-08-09", {"one.rtf", "Two"}},
           {"annexdata",
            {"annex_C1_08_09.rtf", "annexC1_08_09.rtf", "ANNEXA_c1_08_09.RTF",
             "annexb_C1_08_09.rtf", "annexO_C1_08_09.rtf"}},
           {"files/C-C1",
            {"08-09_3cd.txt",        "08-09_3cd.rtf",     "08-09-caur.txt",   "08-09-CAUR.RTF",
             "08-09-dirrep.txt",     "08-09-dirrep.rtf",  "08-09-mauc.txt",   "08-09-mauc.rtf",
             "08-09-not.txt",        "08-09-not.rtf",     "08-09-notice.txt", "08-09-notice.rtf",
             "08-09-sap.txt",        "08-09-sap.rtf",     "08-09-ta.txt",     "08-09-ta.rtf",
             "08-09-anex3cd.txt",    "08-09-anex3cd.rtf", "08-09-Misc1.rtf",  "08-09-MISC x.Rtf",
             "Letter 08-09-misc.rtf"}}});

const Names filesOfOthers = below(
    {{"Annex3CD", {"C1-07-08/one.rtf", "C11-08-09/one.rtf", "C1-08-09.rtf", "C2-08-09/one.rtf"}},
     {"annexdata",
      {"annexO_C1_07_08.rtf", "annexO_C2_08_09.rtf", "annexa_a_C1_08_09.rtf", "annexc_C1_08_09.rtf",
       "annex_C1_08_09.txt"}},
     {"files/C-C1",
      {"07-08_3cd.txt", "07-08-Misc of 08-09.rtf", "08-09-Misc.txt", "08-09-other.rtf",
       "108-09-mauc.txt"}},
     {"files", {"C-C2/08-09_3cd.txt", "C-C11/08-09_3cd.txt", "08-09_3cd.txt"}}});

TEST_F(YearFilesTest, DeletesTheYearsFilesAndNoOthers) {
  putAll(filesOfC1);
  putAll(filesOfOthers);
  deleteMisc("C1");
  Texts kept = filesOfOthers;
  std::sort(kept.begin(), kept.end());
  EXPECT_EQ(files(documents()), kept);
  fs::remove_all(documents());
  deleteMisc("C1");
  EXPECT_EQ(messages().size(), 1U) << "what is not there is no failure";
  EXPECT_TRUE(log().empty());
}

// Wildcards and quotes in a code stand for themselves.
TEST_F(YearFilesTest, AwkwardCodesNameTheirOwnFilesOnly) {
  const Texts codes{"C%", "C_1", "c'1", "C*", "a_C1", "Ö 1"};
  for (const std::string& code : codes) {
    addClient(code, "Client " + code);
    putAll({"Annex3CD/" + code + "-08-09/x", "annexdata/annexa_" + code + "_08_09.rtf",
            "files/C-" + code + "/08-09-sap.txt"});
  }
  putAll({"annexdata/annexa_C1_08_09.rtf", "files/C-CX1/08-09-sap.txt"});
  for (const std::string& code : codes) {
    const Texts before = files(documents());
    deleteMisc(code);
    const Texts after = files(documents());
    EXPECT_EQ(before.size() - after.size(), 3U) << code;
    for (const std::string& name : after) EXPECT_EQ(name.find(code + "-08-09"), std::string::npos);
    messages();
  }
  EXPECT_EQ(files(documents()),
            (Texts{"annexdata/annexa_C1_08_09.rtf", "files/C-CX1/08-09-sap.txt"}));
}

// A code that would lead elsewhere never reaches the file system.
TEST_F(YearFilesTest, CodesThatFormAPathAreRefused) {
  const Texts codes{"../C1", "C1/..", "..", "a/b", "a\\b", "C:1", "/C1"};
  putAll({"Annex3CD/C1-08-09/x", "files/C-a/b/08-09_3cd.txt", "files/08-09_3cd.txt",
          "annexdata/annexa_C1_08_09.rtf"});
  fs::create_directories(documents() / "files/C-..");
  const Texts before = files(documents());
  for (const std::string& code : codes) addClient(code, "Client " + code);
  for (const std::string& code : codes) {
    deleteMisc(code);
    EXPECT_EQ(files(documents()), before) << code;
    EXPECT_EQ(messages().back(), "The files of this year were not deleted: the client code " +
                                     code + " cannot be part of a file name.");
    EXPECT_EQ(trapped(), Texts{"frmdelwhatinTB\tCMDDELETE_CLICK"});
  }
}

TEST_F(YearFilesTest, LinksAreNotFollowedOutOfTheFolder) {
  const TemporaryFolder outside;
  std::ofstream(outside.path() / "08-09_3cd.txt") << "x";
  put("files/C-C1/08-09_3cd.rtf");
  fs::create_directories(documents() / "Annex3CD");
  fs::create_directory_symlink(outside.path(), documents() / "Annex3CD/C1-08-09");
  fs::create_symlink(outside.path() / "08-09_3cd.txt", documents() / "files/C-C1/08-09_3cd.txt");
  deleteMisc("C1");
  EXPECT_TRUE(fs::exists(outside.path() / "08-09_3cd.txt"));
  EXPECT_EQ(files(documents()), Texts{"Annex3CD/C1-08-09"}) << "the link to a file went itself";
  EXPECT_EQ(messages().back(), "These files could not be deleted:\r\nAnnex3CD/C1-08-09");
}

TEST_F(YearFilesTest, WhatCannotBeDeletedIsNamedAndTheRestGoes) {
  putAll({"Annex3CD/C1-08-09/a.rtf", "Annex3CD/C1-08-09/sub/kept.txt",
          "files/C-C1/08-09-sap.txt/in the way", "files/C-C1/08-09-ta.rtf"});
  deleteMisc("C1");
  EXPECT_EQ(files(documents()),
            (Texts{"Annex3CD/C1-08-09/sub/kept.txt", "files/C-C1/08-09-sap.txt/in the way"}));
  EXPECT_EQ(messages().back(), "These files could not be deleted:\r\nfiles/C-C1/08-09-sap.txt")
      << "a folder that no file was expected in place of is no failure";
  EXPECT_TRUE(home().lblstatus.caption().ends_with(" Not all of its files could be deleted."));
  const Texts lines = log();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_NE(lines[0].find("files/C-C1/08-09-sap.txt"), std::string::npos);
}

}  // namespace
}  // namespace quillet::support
