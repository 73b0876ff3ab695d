// The commands for whoever keeps a server, as they are typed.
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <thread>

#include "server/real_server.h"

namespace quillet::support {
namespace {

namespace fs = std::filesystem;

class ServerCommands : public ::testing::Test {
 protected:
  void SetUp() override { NEEDS_REAL_SERVERS(); }

  // What the program said; with its exit status in front.
  std::string run(const std::string& arguments) {
    const std::string line = environment() + QUILLET_PROGRAM " " + arguments + " </dev/null 2>&1";
    std::FILE* pipe = popen(line.c_str(), "r");
    std::string said;
    for (int c; (c = std::fgetc(pipe)) != EOF;) said += static_cast<char>(c);
    return std::to_string(WEXITSTATUS(pclose(pipe))) + ' ' + said;
  }
  void expectSaid(const std::string& arguments, int status, const std::string& text) {
    const std::string said = run(arguments);
    EXPECT_EQ(said.substr(0, said.find(' ')), std::to_string(status)) << arguments << '\n' << said;
    EXPECT_NE(said.find(text), std::string::npos) << arguments << '\n' << said;
  }
  // The same at a terminal, where each line is typed at a prompt; what it showed, and at the end
  // whether it shows what is typed.
  std::string typed(const std::string& arguments, std::vector<std::string> lines) {
    const std::string line = environment() + "exec " QUILLET_PROGRAM " " + arguments;
    int terminal = -1;
    const pid_t process = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (process == 0) {
      execl("/bin/sh", "sh", "-c", line.c_str(), static_cast<char*>(nullptr));
      _exit(127);
    }
    termios state{};
    std::string shown;
    for (char c = 0; read(terminal, &c, 1) == 1;) {
      shown += c;
      tcgetattr(terminal, &state);
      if (!shown.ends_with(": ") || lines.empty()) continue;
      EXPECT_EQ(state.c_lflag & ECHO, 0U) << shown;
      const std::string each = lines.front() + '\n';
      EXPECT_GT(write(terminal, each.data(), each.size()), 0);
      lines.erase(lines.begin());
      if (each == "\x03\n") break;
    }
    int status = 0;
    waitpid(process, &status, 0);
    tcgetattr(terminal, &state);
    close(terminal);
    return shown + ((state.c_lflag & ECHO) != 0 ? "|shows" : "|hides") +
           (WIFSIGNALED(status) ? " ended" : "");
  }
  std::string file(const std::string& name, const std::string& content) {
    const fs::path path = folder.path() / name;
    std::ofstream(path) << content;
    fs::permissions(path, fs::perms(0600));
    return path.string();
  }
  std::string path(const std::string& name) { return (folder.path() / name).string(); }
  std::string environment() {
    return "XDG_DATA_HOME=" + path("home") + " TMPDIR=" + path("") + ' ';
  }

  static std::string quoted(const std::string& text) { return '\'' + text + '\''; }
  static std::string keeper(const RealServer& server, const std::string& database = "quillet") {
    return quoted("mariadb://root@/" + database + "?socket=" + server.socket().string());
  }
  std::string station(const RealServer& server, const std::string& user) {
    return quoted("mariadb://" + user + "@127.0.0.1:" + std::to_string(server.port()) +
                  "/quillet?password-file=" + file("password", "right\n"));
  }

  TemporaryFolder folder;
};

TEST_F(ServerCommands, SetUpAPractice) {
  RealServer server;
  const std::string account = " --account-password-file " + file("password", "right\n");
  expectSaid("server-init " + keeper(server) + " --account kamal" + account, 0,
             "lower_case_table_names is 1 (must be 1 or 2)");
  EXPECT_NE("0", server.value("select count(*) from quillet.Mast_AllGrp"));
  EXPECT_EQ("0", server.value("select count(*) from information_schema.user_privileges where "
                              "grantee like '\\'kamal%' and privilege_type<>'USAGE'"));
  expectSaid("server-init " + keeper(server), 1, "tables already");
  expectSaid("server-account " + keeper(server) + " meera" + account, 0,
             "--server 'mariadb://meera");
  expectSaid("server-account " + keeper(server) + " kamal", 0, "keeps its password");
  expectSaid("server-account " + keeper(server) + " nobody", 1, "needs a password");

  const std::string script = "script " + file("count.lua", "quillet.exec('select 1')");
  const std::string there = "--server " + station(server, "meera") + " --data " + path("meera");
  expectSaid(there + ' ' + script, 0, "");
  expectSaid("--data " + path("meera") + ' ' + script, 0, "");  // the settings name the server now
  expectSaid(there + " check", 0, "The books are sound");
  // Only whoever keeps the server can back the books up.
  for (const char* made : {"Mast_Part values(1,'Cash')", "TAB_2 values(1,'A1',1,1,-5,1)",
                           "master(code_no,f_year_dt,s_year_dt,tbl_nm,count,f_yr,s_yr) values("
                           "'A1','01/04/2008','31/03/2009','TAB_2',2,'01042008','31032009')"}) {
    server.root().execute(std::string("insert into quillet.") + made);
  }
  expectSaid("--data " + path("meera") + " check --mend --yes", 2, "--mend --backed-up");
  expectSaid("--data " + path("meera") + " check --mend --backed-up --yes", 0,
             "The books of before");
  expectSaid("--server mariadb://a@b/c backup x.tar.zst", 2, "for data folders");
  expectSaid("--server 'mariadb://a:secret@b/c' " + script, 1, "A password does not stand");
}

TEST_F(ServerCommands, ThePasswordIsTypedUnseen) {
  RealServer server;
  const std::string made =
      typed("server-init " + keeper(server) + " --account kamal", {"different", "passwords"});
  EXPECT_NE(made.find("The two passwords differ"), std::string::npos) << made;
  expectSaid("server-init " + keeper(server), 0, "was made");
  const std::string account = "server-account " + keeper(server) + " kamal";
  EXPECT_NE(typed(account, {"right", "right"}).find("was made"), std::string::npos);
  const std::string station =
      "--data " + path("station") +
      " --server 'mariadb://kamal@127.0.0.1:" + std::to_string(server.port()) + "/quillet' check";
  const std::string shown = typed(station, {"wrong", "right"});
  EXPECT_NE(shown.find("That was not it."), std::string::npos) << shown;
  EXPECT_NE(shown.find("The books are sound"), std::string::npos) << shown;
  EXPECT_EQ(shown.find("right"), std::string::npos) << shown;
  const std::string left = typed(station, {"\x03"});
  EXPECT_NE(left.find("|shows ended"), std::string::npos) << left;
}

TEST_F(ServerCommands, CopyAPracticeThereAndBack) {
  RealServer server;
  const std::string books = "--data " + path("books");
  expectSaid(books + " init --empty", 0, "");
  const std::string change = file("change.lua", R"(
    quillet.exec("update Mast_AllGrp set ALLGRP=concat(ALLGRP,' \\'é') where ALLID<9")
    quillet.exec("delete from Mast_AllGrp where ALLID=9"))");
  expectSaid(books + " script " + change, 0, "");
  suite::Settings(suite::DataFolder::open(path("books")).settings()).setCompanyName("Rao & Co");
  std::ofstream(path("books") + "/documents/letter.txt") << "Dear";
  const std::string said = run("copy " + path("books") + ' ' + keeper(server));
  const std::string tables = "0 " +
                             server.value(
                                 "select count(*) from information_schema.tables where "
                                 "table_schema='quillet'") +
                             " tables with ";
  EXPECT_EQ(said.substr(0, tables.size()), tables) << said;
  EXPECT_NE("0", server.value("select count(*) from quillet.Mast_AllGrp for system_time all where "
                              "row_till<now() and ALLID=9"));
  EXPECT_EQ("0", server.value("select count(*) from quillet.Mast_AllGrp where ALLID=9"));
  expectSaid("copy " + path("books") + ' ' + keeper(server), 1, "There are tables");
  expectSaid("copy " + keeper(server) + ' ' + path("books"), 1, "already");
  expectSaid("copy " + path("books") + ' ' + path("other"), 1, "from a data folder to a server");

  expectSaid("copy " + keeper(server) + ' ' + path("back"), 0, "were copied and compared");
  expectSaid("--data " + path("back") + " check", 0, "The books are sound");
  EXPECT_TRUE(fs::exists(path("back") + "/documents/letter.txt"));
  EXPECT_EQ(suite::Settings(suite::DataFolder::open(path("back")).settings()).companyName(),
            "Rao & Co");
  expectSaid("copy " + path("back") + ' ' + keeper(server, "again"), 0, "were copied and compared");
  // Every version with its period.
  const auto versions = [&](const std::string& database) {
    return server.value(
        "select group_concat(ALLID,ALLGRP,row_id,row_from,row_till order by"
        " row_id,row_till) from " +
        database + ".Mast_AllGrp for system_time all");
  };
  server.root().execute("set group_concat_max_len=1000000");
  EXPECT_EQ(versions("quillet"), versions("again"));
}

TEST_F(ServerCommands, ACopyThatDiesIsNotOpened) {
  RealServer server;
  expectSaid("--data " + path("books") + " init --empty", 0, "");
  const std::string line = environment() + "exec " QUILLET_PROGRAM " copy " + path("books") + ' ' +
                           keeper(server) + " >/dev/null 2>&1";
  const pid_t copying = fork();
  if (copying == 0) {
    execl("/bin/sh", "sh", "-c", line.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  const std::string made =
      "select count(*)>5 from information_schema.tables where table_schema='quillet'";
  while (server.value(made) == "0" && kill(copying, 0) == 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  kill(copying, SIGKILL);
  waitpid(copying, nullptr, 0);
  server.addAccount("kamal", "right");
  expectSaid("--server " + station(server, "kamal") + " check", 2, "has not come to its end");
  expectSaid("copy " + path("books") + ' ' + keeper(server), 1, "There are tables");
  server.root().execute("drop database quillet");
  expectSaid("copy " + path("books") + ' ' + keeper(server), 0, "were copied and compared");
  expectSaid("--data " + path("books") + " check", 0, "The books are sound");
}

}  // namespace
}  // namespace quillet::support
