// Errors in the text box's procedures, with the module's start-up done and without it.
#include <gtest/gtest.h>
#include <ole2.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "fakes/named_object.h"
#include "windows/com/late.h"

namespace quillet::fakes {
namespace {

using windows::Late;

// The module lives on the thread that created it, until COM ends there.
void failOnAThreadOfItsOwn(const std::string& folder) {
  std::thread([&] {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    {
      auto host = Pointer<MemberTable>::attach(new MemberTable);
      host->addValue("CheckDllsVersion", true);
      host->addValue("ExePath", folder);
      const Late fakes = Late::create("QuilletTest.Fakes");
      fakes.call("Serve", "TalBase.ClsMain", Variant(host.get()));
      fakes.call("Serve", "PrjOrvoReporter.ClsMain", Variant(host.get()));

      const Late box = Late::create("Quillet.VTxt");
      box.put("Include", std::string(52, 'x'));  // before there is a log
      const Late module = Late::create("PrjQuillet.Forms");
      box.put("Exclude", std::string(52, 'x'));
      box.put("SelStart", -1);
      box.put("BackColor", 0x7fffffff);
      fakes.call("Serve", "TalBase.ClsMain", Variant());
      fakes.call("Serve", "PrjOrvoReporter.ClsMain", Variant());
    }
    CoUninitialize();
  }).join();
}

TEST(VTxtLogged, ErrorsAreLoggedUnderTheProceduresNames) {
  const auto folder = std::filesystem::temp_directory_path() / u8"h\u00f6st";
  std::filesystem::create_directories(folder);
  const std::u8string name = folder.u8string();
  failOnAThreadOfItsOwn({name.begin(), name.end()});

  std::ifstream log(folder / "TalLog.log");
  std::string logged;
  for (std::string line; std::getline(log, line);) {
    // Behind date and time: number, description, source, form, procedure.
    std::istringstream fields(line.substr(line.find('\t') + 1));
    std::string number, last;
    std::getline(fields, number, '\t');
    for (std::string field; std::getline(fields, field, '\t');) last = field;
    logged += number + " " + last + "\n";
  }
  EXPECT_EQ(logged, "9 LET EXCLUDE\n380 LET SELSTART\n380 LET BACKCOLOR\n");
  log.close();
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace quillet::fakes
