// What stands around the forms: message boxes, progress, help, reports, pictures.
#include <QFile>
#include <QListWidget>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>

#include "desktop/help_topics.h"
#include "desktop/help_window.h"
#include "desktop/pdf.h"
#include "desktop/report_pages.h"
#include "desktop/report_window.h"
#include "desktop/stand.h"
#include "desktop/text.h"
#include "suite/queued_dialogs.h"

namespace quillet::desktop {
namespace {

using Surrounding = Stand;

QMessageBox* openBox() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }

Message saying(const std::string& text, Buttons buttons = Buttons::OK) {
  return {text, "", buttons, Icon::none, Answer::OK};
}

TEST_F(Surrounding, MessageBoxesAnswerToTheirKeys) {
  const struct {
    Buttons buttons;
    Answer defaultAnswer;
    Qt::Key key;
    Answer answer;
  } cases[] = {{Buttons::OK, Answer::OK, Qt::Key_Return, Answer::OK},
               {Buttons::OK, Answer::OK, Qt::Key_Escape, Answer::OK},
               {Buttons::YesNo, Answer::No, Qt::Key_Return, Answer::No},
               {Buttons::YesNo, Answer::Yes, Qt::Key_Return, Answer::Yes},
               {Buttons::YesNo, Answer::No, Qt::Key_Y, Answer::Yes},
               {Buttons::YesNo, Answer::Yes, Qt::Key_N, Answer::No},
               {Buttons::YesNo, Answer::Yes, Qt::Key_Escape, Answer::No},
               {Buttons::YesNoCancel, Answer::Yes, Qt::Key_Escape, Answer::Cancel},
               {Buttons::YesNoCancel, Answer::Cancel, Qt::Key_N, Answer::No}};
  for (const auto& one : cases) {
    whenAsked([&] { QTest::keyClick(openBox(), one.key); });
    const Answer answer = theApplication().dialogs().MsgBox(
        {"Confirm ?", "Delete", one.buttons, Icon::question, one.defaultAnswer});
    EXPECT_EQ(answer, one.answer) << "key " << one.key;
  }
}

// Through the toolkit's own frames an exception would end the program.
TEST_F(Surrounding, WhatAWindowThrowsIsLogged) {
  class Thrower : public QObject {
    bool event(QEvent*) override { throw std::runtime_error("broken"); }
  };
  std::string logged;
  desk.onError = [&](const std::string&, const std::exception& error) { logged = error.what(); };
  Thrower thrower;
  QEvent event(QEvent::User);
  EXPECT_FALSE(QCoreApplication::sendEvent(&thrower, &event));
  EXPECT_EQ(logged, "broken");
}

TEST_F(Surrounding, MessageBoxesShowTheTextAsItIs) {
  whenAsked([&] {
    QMessageBox* box = openBox();
    EXPECT_EQ(box->text(), "Delete '<b>A & B</b>' ?\n\nConfirm ?");
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_EQ(box->windowTitle(), "Delete");
    EXPECT_EQ(box->icon(), QMessageBox::Critical);
    EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No));
    const QImage picture = theApplication().screenshot();
    EXPECT_GE(picture.width(), window()->width()) << "window and box on one picture";
    box->button(QMessageBox::Yes)->click();
  });
  const Answer answer =
      theApplication().dialogs().MsgBox({"Delete '<b>A & B</b>' ?\r\n\r\nConfirm ?", "Delete",
                                         Buttons::YesNo, Icon::critical, Answer::No});
  EXPECT_EQ(answer, Answer::Yes);
}

TEST_F(Surrounding, ALongMessageIsScrolledAndKeepsItsButtonsInSight) {
  std::string names;
  for (int i = 1; i <= 300; ++i) names += "'LEDGER " + std::to_string(i) + "'\r\n";
  whenAsked([&] {
    QMessageBox* box = openBox();
    EXPECT_TRUE(box->text().contains(QStringLiteral("'LEDGER 300'")));
    const QRect screen = box->screen()->availableGeometry();
    EXPECT_LT(box->frameGeometry().height(), screen.height());
    const auto* area = box->findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    EXPECT_GE(area->viewport()->width(), area->widget()->width()) << "no name is cut";
    EXPECT_GT(area->widget()->height(), area->viewport()->height());
    QTest::keyClick(box, Qt::Key_N);
  });
  const Answer answer = theApplication().dialogs().MsgBox(
      {names, "Ledger Master", Buttons::YesNo, Icon::question, Answer::No});
  EXPECT_EQ(answer, Answer::No);
}

TEST_F(Surrounding, AMessageDuringAClickStopsTheClick) {
  form.txtname.LostFocus = [] {
    whenAsked([] { QTest::keyClick(openBox(), Qt::Key_Return); });
    theApplication().dialogs().MsgBox(saying("Please specify Particulars."));
  };
  focus(form.txtname);
  form.takeDiary();
  click(widget(form.chkall), QPoint(8, 8));
  const auto seen = form.takeDiary();
  EXPECT_EQ(std::count(seen.begin(), seen.end(), "click chkall"), 0);
  EXPECT_FALSE(widget<QAbstractButton>(form.chkall)->isDown());
}

TEST_F(Surrounding, AFileThatIsThereIsAskedAboutOnce) {
  QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("books.xls"));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  // Whatever opens is accepted; the first is the dialog itself.
  std::vector<QWidget*> opened;
  QTimer person;
  QObject::connect(&person, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || (!opened.empty() && opened.back() == dialog)) return;
    opened.push_back(dialog);
    QMetaObject::invokeMethod(dialog, opened.size() == 1 ? "accept" : "reject",
                              Qt::QueuedConnection);
  });
  person.start(10);
  EXPECT_EQ(theApplication().dialogs().saveFile("Excel Files|*.xls", fromQt(path)), fromQt(path));
  EXPECT_EQ(opened.size(), 1U) << "the form asks, the dialog does not";
}

TEST_F(Surrounding, DialogsCanBeExchanged) {
  suite::QueuedDialogs queue;
  queue.queueAnswer(Answer::Yes);
  theApplication().useDialogs(&queue);
  EXPECT_EQ(theApplication().dialogs().MsgBox(saying("Sure?", Buttons::YesNo)), Answer::Yes);
  EXPECT_EQ(theApplication().popup({"One", "Two"}), 0);
  theApplication().useDialogs(nullptr);
  EXPECT_NE(&theApplication().dialogs(), &queue);
}

TEST_F(Surrounding, ProgressShowsOnlyWhenItLasts) {
  Application& app = theApplication();
  app.showProgress(true);
  app.progressText("Loading Ledger List....");
  app.progressBar(1, 10);
  EXPECT_EQ(window()->findChild<QWidget*>("busy"), nullptr);
  QTest::qSleep(170);
  app.progressBar(2, 10);
  auto* panel = window()->findChild<QWidget*>("busy");
  ASSERT_TRUE(panel);
  EXPECT_TRUE(panel->isVisible());
  // What a person types meanwhile is dropped, not done afterwards.
  form.focus(form.txtamount);
  QCoreApplication::postEvent(widget(form.txtamount),
                              new QKeyEvent(QEvent::KeyPress, Qt::Key_7, {}, "7"));
  QTest::qSleep(60);
  app.progressBar(9, 10);
  whenAsked([&] {
    EXPECT_FALSE(panel->isVisible()) << "a question stands alone";
    QTest::keyClick(openBox(), Qt::Key_Return);
  });
  app.dialogs().MsgBox(saying("Import?"));
  app.showProgress(false);
  settle();
  EXPECT_EQ(form.txtamount.text(), "");
  EXPECT_EQ(window()->findChild<QWidget*>("busy"), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

// --- help ---------------------------------------------------------------------------------------

TEST(HelpPages, AreWholeAndBelongToTheirForms) {
  ASSERT_GE(helpTopics().size(), 2u);
  for (const HelpTopic& topic : helpTopics()) {
    EXPECT_FALSE(topic.id.isEmpty()) << topic.file.toStdString();
    EXPECT_FALSE(topic.title.isEmpty()) << topic.file.toStdString();
    EXPECT_GT(topic.words.size(), 500) << topic.file.toStdString();
  }
  const std::pair<const char*, const char*> forms[] = {
      {"third", "2-2"},           {"frmcrtb", "2-2-1"},       {"frmjrnl", "journal"},
      {"frmgrpmas", "groups"},    {"frmtbledmas", "ledgers"}, {"frmgrpRM", "binding"},
      {"frmdelwhatinTB", "years"}};
  for (const auto& [form, topic] : forms) {
    ASSERT_TRUE(helpOfForm(form)) << form;
    EXPECT_EQ(helpOfForm(form)->id, topic);
    EXPECT_EQ(helpTopic(topic), helpOfForm(form)) << "an id names one page";
  }
  EXPECT_EQ(helpWith("no such words anywhere").size(), 0u);
  EXPECT_EQ(helpWith("").size(), helpTopics().size());
}

TEST_F(Surrounding, HelpShowsTheTopicAndClosesOnEscape) {
  theApplication().help("2-2-1");
  settle();
  HelpWindow* help = nullptr;
  for (QWidget* top : QApplication::topLevelWidgets()) {
    if (auto* found = dynamic_cast<HelpWindow*>(top)) help = found;
  }
  ASSERT_TRUE(help && help->isVisible());
  EXPECT_EQ(help->topic(), "2-2-1");
  help->findChild<QLineEdit*>()->setText("client");
  EXPECT_GE(help->findChild<QListWidget*>()->count(), 1);
  QTest::keyClick(help->findChild<QTextBrowser*>(), Qt::Key_Escape);
  EXPECT_FALSE(help->isVisible());
}

// --- reports ------------------------------------------------------------------------------------

suite::Document report(int rows, int textColumns = 1) {
  suite::Document document;
  document.addHeading("SHAH & CO");
  document.addHeading("Trial Balance For the Period From 01/04/2008 To 31/03/2009");
  document.beginTable();
  suite::Document::Written line;
  line.values.assign(static_cast<std::size_t>(textColumns), "PARTICULARS OF THE LEDGER ACCOUNT");
  line.values.emplace_back("AMOUNT");
  line.alignments.assign(line.values.size(), 0);
  line.alignments.back() = 1;
  line.widths.assign(line.values.size(), 0);
  line.before.assign(line.values.size(), "");
  line.after = line.before;
  line.masks = {"0", "0", "0", "1"};
  line.heading = true;
  document.addRow(line);
  line.heading = false;
  for (int row = 0; row < rows; ++row) {
    line.values.front() = "Ledger " + std::to_string(row);
    line.values.back() = std::to_string(row) + ".00";
    document.addRow(line);
  }
  return document;
}

TEST(Reports, RepeatHeadingRowsAndLoseNoRow) {
  const suite::Document document = report(250);
  const ReportPages pages(document, QDate(2009, 4, 1));
  ASSERT_GT(pages.count(), 2);
  std::size_t printed = 0;
  for (int page = 0; page < pages.count(); ++page) {
    ASSERT_FALSE(pages.rowsOn(page).empty());
    EXPECT_EQ(pages.rowsOn(page).front(), 0u) << "the heading row stands on page " << page;
    printed += pages.rowsOn(page).size() - 1;
  }
  EXPECT_EQ(printed, 250u);
  EXPECT_EQ(pages.rowsOn(pages.count() - 1).back(), 250u);
}

// A document without headings; each row's cells and whether it is one of the headings.
suite::Document plain(const std::vector<std::pair<std::vector<std::string>, bool>>& rows,
                      const std::vector<int>& alignments = {}) {
  suite::Document document;
  document.beginTable();
  for (const auto& [values, heading] : rows) {
    suite::Document::Written row;
    row.values = values;
    row.alignments = alignments;
    row.masks = {"0", "0", "0", "1"};
    row.heading = heading;
    document.addRow(row);
  }
  return document;
}

// A narration of any length costs neither the amounts their place nor itself its end.
TEST(Reports, ALongTextWrapsAndGoesOnOverleaf) {
  std::string narration;
  while (narration.size() < 16'000) narration += "being the share of profit ";
  const suite::Document document = plain({{{"Date", "Particulars", "Amount"}, true},
                                          {{"2-6-2008", "By Capital", "12,345.60"}, false},
                                          {{"", narration, ""}, false},
                                          {{"3-6-2008", "By Capital", "1.00"}, false}},
                                         {0, 0, 1});
  const ReportPages pages(document, QDate(2009, 4, 1));
  EXPECT_FALSE(pages.landscape());
  for (const std::size_t cell : {0U, 1U, 2U}) {
    EXPECT_LT(pages.room(document.rows()[2], cell).right(), pages.size().width()) << cell;
  }
  EXPECT_LT(pages.room(document.rows()[1], 0).right(), pages.room(document.rows()[1], 1).left());
  ASSERT_GT(pages.count(), 2);
  using Rows = std::vector<std::size_t>;
  EXPECT_EQ(pages.rowsOn(0), (Rows{0, 1}));
  for (int page = 1; page + 1 < pages.count(); ++page) EXPECT_EQ(pages.rowsOn(page), (Rows{0, 2}));
  EXPECT_EQ(pages.rowsOn(pages.count() - 1), (Rows{0, 2, 3}));
}

TEST(Reports, HeadingsOfBlocksStandOverTheirColumns) {
  const suite::Document document = plain({{{"Particular", "Original", "Final"}, true},
                                          {{"", "Dr.", "Cr.", "Dr.", "Cr."}, true},
                                          {{"A note on the rest of the line", "goes on"}, false}});
  const ReportPages pages(document, QDate(2009, 4, 1));
  const auto room = [&](std::size_t row, std::size_t cell) {
    return pages.room(document.rows()[row], cell);
  };
  for (const std::size_t block : {1U, 2U}) {
    EXPECT_EQ(room(0, block).left(), room(1, 2 * block - 1).left()) << block;
    EXPECT_EQ(room(0, block).right(), room(1, 2 * block).right()) << block;
  }
  EXPECT_EQ(room(2, 1).left(), room(1, 1).left());
  EXPECT_EQ(room(2, 1).right(), room(1, 4).right());
}

TEST(Reports, TurnThePageWhenTheColumnsNeedIt) {
  const suite::Document slim = report(3), wide = report(3, 5), empty;
  EXPECT_FALSE(ReportPages(slim, {}).landscape());
  EXPECT_TRUE(ReportPages(wide, {}).landscape());
  EXPECT_EQ(ReportPages(empty, {}).count(), 1);
}

TEST(Reports, AreSavedWholeWithAWideTitleOrNotAtAll) {
  suite::Document document = report(120);
  document.setFirm("A firm of a name so long that " + std::string(60, 'n') + " " +
                   std::string(60, 'm') + " does not fit a line of any page that is printed");
  const QTemporaryDir folder;
  EXPECT_FALSE(savePdf(document, folder.filePath("no/such/folder.pdf")));
  const QString path = folder.filePath("tb.pdf");
  ASSERT_TRUE(savePdf(document, path, QDate(2009, 4, 1)));
  QProcess reader;
  reader.start("pdftotext", {"-layout", path, "-"});
  ASSERT_TRUE(reader.waitForFinished());
  const QByteArray text = reader.readAllStandardOutput();
  EXPECT_TRUE(text.contains("that is printed\n")) << text.constData();
  EXPECT_LT(text.indexOf("printed\n"), text.indexOf("SHAH & CO"));
  EXPECT_LT(text.indexOf("SHAH & CO"), text.indexOf("PARTICULARS"));
  EXPECT_GE(text.count('\f'), 3) << "pages";
  EXPECT_TRUE(text.contains("119.00"));
}

TEST_F(Surrounding, ReportsAreShownPageByPage) {
  theApplication().showReport(report(250));
  settle();
  auto* shown = dynamic_cast<ReportWindow*>(QApplication::activeWindow());
  ASSERT_TRUE(shown);
  EXPECT_EQ(shown->pageInView(), 0);
  const double fitting = shown->scale();
  shown->zoom(1.25);
  EXPECT_DOUBLE_EQ(shown->scale(), fitting * 1.25);
  EXPECT_FALSE(theApplication().screenshot().isNull());
  QTest::keyClick(shown->centralWidget(), Qt::Key_Escape);
  settle();
  EXPECT_EQ(dynamic_cast<ReportWindow*>(QApplication::activeWindow()), nullptr);
}

}  // namespace
}  // namespace quillet::desktop
