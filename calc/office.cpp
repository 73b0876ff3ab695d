#include "calc/office.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "calc/text.h"

namespace quillet::calc {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

const fs::path program = QUILLET_OFFICE_PROGRAM;

fs::path newProfile() {
  std::string pattern = (fs::temp_directory_path() / "quillet-calc-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) {
    throw std::runtime_error("LibreOffice finds no room for its profile in " +
                             fs::temp_directory_path().string());
  }
  return pattern;
}

// Files from anywhere are opened: nothing in them runs, is fetched or reckoned anew.
constexpr const char* settings = R"(<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Common/Security/Scripting">
<prop oor:name="DisableMacrosExecution" oor:op="fuse"><value>true</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Security/Scripting">
<prop oor:name="BlockUntrustedRefererLinks" oor:op="fuse"><value>true</value></prop></item>
<item oor:path="/org.openoffice.Office.Calc/Formula/Load">
<prop oor:name="OOXMLRecalcMode" oor:op="fuse"><value>1</value></prop></item>
<item oor:path="/org.openoffice.Office.Calc/Formula/Load">
<prop oor:name="ODFRecalcMode" oor:op="fuse"><value>1</value></prop></item>
</oor:items>
)";

void writeSettings(const fs::path& profile) {
  fs::create_directories(profile / "user");
  std::ofstream(profile / "user" / "registrymodifications.xcu") << settings;
}

bool ended(int process) { return waitpid(process, nullptr, WNOHANG) != 0; }

}  // namespace

Office::Office() {
  if (!fs::exists(program / "soffice")) {
    throw std::runtime_error("LibreOffice is not installed in " + program.string());
  }
  profile_ = newProfile();
  writeSettings(profile_);
  const std::string pipe = "quillet" + std::to_string(getpid());
  try {
    start(pipe);
    connect(pipe);
  } catch (...) {
    end();
    throw;
  }
}

Office::~Office() { end(); }

void Office::start(const std::string& pipe) {
  const std::string soffice = program / "soffice";
  const std::string accept = "--accept=pipe,name=" + pipe + ";urp;StarOffice.ComponentContext";
  const std::string profile = "-env:UserInstallation=" + toUtf8(urlOf(profile_.string()));
  process_ = fork();
  if (process_ < 0) throw std::runtime_error("LibreOffice cannot be started");
  if (process_ > 0) return;
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  // Standard output carries our answers, so LibreOffice must not write there.
  dup2(STDERR_FILENO, STDOUT_FILENO);
  execl(soffice.c_str(), "soffice", "--headless", "--invisible", "--norestore", "--nologo",
        "--nodefault", "--nolockcheck", profile.c_str(), accept.c_str(), nullptr);
  _exit(127);
}

void Office::connect(const std::string& pipe) {
  const auto local = cppu::defaultBootstrap_InitialComponentContext();
  const auto resolver = com::sun::star::bridge::UnoUrlResolver::create(local);
  const auto url = fromUtf8("uno:pipe,name=" + pipe + ";urp;StarOffice.ComponentContext");
  // The program that started us limits the time; here it is enough that LibreOffice is running.
  while (!ended(process_)) {
    try {
      context_.set(resolver->resolve(url), uno::UNO_QUERY_THROW);
      desktop_ = frame::Desktop::create(context_);
      return;
    } catch (const com::sun::star::connection::NoConnectException&) {
      std::this_thread::sleep_for(20ms);
    }
  }
  process_ = 0;
  throw std::runtime_error("LibreOffice ended while it was starting");
}

void Office::end() {
  try {
    if (desktop_.is()) desktop_->terminate();
  } catch (const uno::Exception&) {
    // It has ended already.
  }
  desktop_.clear();
  context_.clear();
  for (int tries = 0; process_ > 0; ++tries) {
    if (ended(process_)) process_ = 0;
    if (process_ > 0 && tries == 200) kill(process_, SIGKILL);
    std::this_thread::sleep_for(10ms);
  }
  std::error_code ignored;
  fs::remove_all(profile_, ignored);
}

}  // namespace quillet::calc
