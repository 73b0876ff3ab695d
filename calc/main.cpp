// quillet-calc: controls LibreOffice Calc for Quillet, in a process of its own so that Quillet does
// not need LibreOffice to start and survives its crash.
//
//   quillet-calc                   executes the commands on standard input (suite/calc_lines.h)
//   quillet-calc --templates LINES STATEMENTS
//                                  makes the templates of the exports, each unless it is there
//   quillet-calc --convert PATH NEW STORED KIND
//                                  writes the workbook PATH as NEW, one of zip and XML, and unless
//                                  STORED is empty as STORED, where formulas have the values of the
//                                  file; KIND is the name of LibreOffice's filter or empty. Answers
//                                  "ok" or "error MESSAGE".
//   quillet-calc --read PATH       prints every sheet: its name, then its cells as lines; a cell
//                                  that shows an error is "error ROW COLUMN TEXT"

#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "calc/book.h"
#include "calc/text.h"
#include "suite/calc_lines.h"

namespace quillet::calc {
namespace {

using suite::CalcLine;

int integerIn(const std::string& text) { return std::stoi(text); }

double numberIn(const std::string& text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// Prints the answer to what was done.
template <class Work>
void tell(const Work& work) {
  CalcLine reply{"ok"};
  try {
    work(reply);
  } catch (const uno::Exception& error) {
    reply = {"error", error.Message.isEmpty() ? "LibreOffice failed" : toUtf8(error.Message)};
  } catch (const std::exception& error) {
    reply = {"error", error.what()};
  }
  std::cout << suite::calcText(reply) << std::flush;
}

// Executes commands, one a line. Cells are only collected, so they get no answer; saving reports
// one that does not fit.
class Server {
 public:
  // False after "quit".
  bool execute(const CalcLine& line) {
    const std::string& command = line.at(0);
    if (command == "text" || command == "number") {
      gather(line);
      return true;
    }
    answer(line);
    return command != "quit";
  }

 private:
  void gather(const CalcLine& line) {
    try {
      book().set(integerIn(line.at(1)), integerIn(line.at(2)), integerIn(line.at(3)),
                 line.at(0) == "number" ? Value(numberIn(line.at(4))) : Value(line.at(4)));
    } catch (const std::exception& error) {
      if (failure_.empty()) failure_ = error.what();
    }
  }

  void answer(const CalcLine& line) {
    tell([&](CalcLine& reply) { run(line, reply); });
  }

  void run(const CalcLine& line, CalcLine& reply) {
    const std::string& command = line.at(0);
    if (command == "open") {
      if (!office_) office_ = std::make_unique<Office>();
      book_ = std::make_unique<Book>(*office_, line.at(1));
      for (std::string& name : book_->sheets()) reply.push_back(std::move(name));
    } else if (command == "save") {
      if (!failure_.empty()) throw std::runtime_error(failure_);
      book().save();
    } else if (command == "close") {
      book_.reset();
    } else if (command == "quit") {
      book_.reset();
      office_.reset();
    } else {
      throw std::runtime_error("unknown command " + command);
    }
  }

  Book& book() {
    if (!book_) throw std::runtime_error("no workbook is open");
    return *book_;
  }

  std::unique_ptr<Office> office_;
  std::unique_ptr<Book> book_;
  std::string failure_;
};

int serve() {
  Server server;
  for (std::string text; std::getline(std::cin, text);) {
    if (!server.execute(suite::calcLine(text))) break;
  }
  return 0;
}

std::vector<TemplateSheet> linesTemplate() {
  return {{"TB",
           {{"S. No.", 1'600},
            {"Particulars", 8'500},
            {"Group", 6'500},
            {"Amount (Dr)", 3'800, true},
            {"Amount (Cr)", 3'800, true}}}};
}

std::vector<TemplateSheet> statementsTemplate() {
  const std::vector<TemplateColumn> columns{
      {"", 9'000}, {"", 1'400}, {"", 3'200, true}, {"", 3'200, true}};
  return {{"Balance Sheet", columns},
          {"Profit and Loss", columns},
          {"Income Tax", columns},
          {"Notes", columns}};
}

int makeTemplates(const std::string& lines, const std::string& statements) {
  const Office office;
  for (const auto& [path, sheets] :
       {std::pair{lines, linesTemplate()}, {statements, statementsTemplate()}}) {
    if (std::filesystem::exists(path)) continue;
    Book book(office);
    book.makeSheets(sheets);
    book.saveAs(path);
  }
  return 0;
}

int convert(const std::string& path, const std::string& to, const std::string& stored,
            const std::string& kind) {
  tell([&](CalcLine&) {
    const Office office;
    Book book(office, path, kind);
    if (!stored.empty()) book.convertStored(stored);
    book.convertTo(to);
  });
  return 0;
}

CalcLine cellLine(std::size_t row, std::size_t column, const Value& value) {
  CalcLine line{"text", std::to_string(row + 1), std::to_string(column + 1), ""};
  if (const auto* text = std::get_if<std::string>(&value)) line[3] = *text;
  if (const auto* error = std::get_if<CellError>(&value))
    line = {"error", line[1], line[2], error->shown};
  if (const auto* number = std::get_if<double>(&value)) {
    char digits[32];
    line[0] = "number";
    line[3].assign(digits, std::to_chars(std::begin(digits), std::end(digits), *number).ptr);
  }
  return line;
}

int read(const std::string& path) {
  const Office office;
  const Book book(office, path);
  const auto names = book.sheets();
  for (std::size_t sheet = 0; sheet < names.size(); ++sheet) {
    std::cout << suite::calcText({"sheet", names[sheet]});
    const auto rows = book.values(static_cast<int>(sheet));
    for (std::size_t row = 0; row < rows.size(); ++row) {
      for (std::size_t column = 0; column < rows[row].size(); ++column) {
        const Value& value = rows[row][column];
        if (value.index() != 0) std::cout << suite::calcText(cellLine(row, column, value));
      }
    }
  }
  return 0;
}

int run(int argc, char** argv) {
  const std::string option = argc > 1 ? argv[1] : "";
  if (argc == 1) return serve();
  if (argc == 4 && option == "--templates") return makeTemplates(argv[2], argv[3]);
  if (argc == 3 && option == "--read") return read(argv[2]);
  if (argc == 6 && option == "--convert") return convert(argv[2], argv[3], argv[4], argv[5]);
  std::cerr
      << "usage: quillet-calc [--templates LINES STATEMENTS | --convert PATH NEW STORED KIND |"
         " --read PATH]\n";
  return 2;
}

}  // namespace
}  // namespace quillet::calc

int main(int argc, char** argv) {
  // Where UNO finds its types and services.
  setenv("URE_BOOTSTRAP", "vnd.sun.star.pathname:" QUILLET_OFFICE_PROGRAM "/fundamentalrc", 1);
  // Without a locale of UTF-8 LibreOffice finds no file whose path has letters outside ASCII.
  setenv("LC_ALL", "C.UTF-8", 1);
  try {
    return quillet::calc::run(argc, argv);
  } catch (const com::sun::star::uno::Exception& error) {
    std::cerr << quillet::calc::toUtf8(error.Message) << '\n';
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
  }
  return 1;
}
