// Message boxes, file dialogs, progress and help around the forms.
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <csignal>
#include <set>

#include "desktop/desktop_test.h"
#include "desktop/ending_signals.h"
#include "desktop/help_topics.h"
#include "desktop/help_window.h"
#include "desktop/text.h"
#include "suite/queued_dialogs.h"

namespace quillet::desktop {
namespace {

using DialogsTest = DesktopTest;

QMessageBox* openBox() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }

Message saying(const std::string& text, Buttons buttons = Buttons::OK) {
  return {text, "", buttons, Icon::none, Answer::OK};
}

TEST_F(DialogsTest, MessageBoxesAnswerToTheirKeys) {
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

TEST_F(DialogsTest, ARequestToEndClosesWhatIsAskedAndTheProgram) {
  const EndingSignals ending;
  whenAsked([] { std::raise(SIGTERM); });
  const Message question{"Delete ?", "", Buttons::YesNo, Icon::question, Answer::Yes};
  EXPECT_EQ(theApplication().dialogs().MsgBox(question), Answer::No);
  EXPECT_EQ(QApplication::exec(), 0);
}

// Through the toolkit's own frames an exception would end the program.
TEST_F(DialogsTest, WhatAWindowThrowsIsLogged) {
  class Thrower : public QObject {
    bool event(QEvent*) override { throw std::runtime_error("broken"); }
  };
  std::string logged;
  openForms.onError = [&](const std::string&, const std::exception& error) {
    logged = error.what();
  };
  Thrower thrower;
  QEvent event(QEvent::User);
  EXPECT_FALSE(QCoreApplication::sendEvent(&thrower, &event));
  EXPECT_EQ(logged, "broken");
}

TEST_F(DialogsTest, MessageBoxesShowTheTextAsItIs) {
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

TEST_F(DialogsTest, ALongMessageIsScrolledAndKeepsItsButtonsInSight) {
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

TEST_F(DialogsTest, AMessageDuringAClickStopsTheClick) {
  form.txtname.LostFocus = [] {
    whenAsked([] { QTest::keyClick(openBox(), Qt::Key_Return); });
    theApplication().dialogs().MsgBox(saying("Please specify Particulars."));
  };
  focus(form.txtname);
  form.takeEvents();
  click(widget(form.chkall), QPoint(8, 8));
  const auto seen = form.takeEvents();
  EXPECT_EQ(std::count(seen.begin(), seen.end(), "click chkall"), 0);
  EXPECT_FALSE(widget<QAbstractButton>(form.chkall)->isDown());
}

TEST_F(DialogsTest, AFileThatIsThereIsAskedAboutOnce) {
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

TEST_F(DialogsTest, DialogsCanBeExchanged) {
  suite::QueuedDialogs queue;
  queue.queueAnswer(Answer::Yes);
  theApplication().useDialogs(&queue);
  EXPECT_EQ(theApplication().dialogs().MsgBox(saying("Sure?", Buttons::YesNo)), Answer::Yes);
  EXPECT_EQ(theApplication().popup({"One", "Two"}), 0);
  theApplication().useDialogs(nullptr);
  EXPECT_NE(&theApplication().dialogs(), &queue);
}

// No event may come in between: a timer, say, would use the connection that is waited for.
TEST_F(DialogsTest, AServerIsWaitedForWithoutEvents) {
  Application& app = theApplication();
  int events = 0;
  const auto post = [&] { QTimer::singleShot(0, window(), [&] { ++events; }); };
  const auto shown = [&] {
    const auto* const panel = window()->findChild<QWidget*>("busy");
    return panel && panel->isVisible() && window()->rect().contains(panel->geometry());
  };
  for (const bool busy : {false, true}) {
    if (busy) app.showProgress(true);
    post();
    app.serverWaits(true);
    app.serverWaits(true);
    EXPECT_TRUE(shown());
    EXPECT_EQ(window()->findChild<QWidget*>("busy")->findChild<QLabel*>()->text(),
              "Waiting for the database server ...");
    app.serverWaits(false);
    EXPECT_EQ(events, 0);
    if (busy) app.progressText("Reading");
    EXPECT_EQ(shown(), busy);
    if (busy) app.showProgress(false);
    settle();
    EXPECT_EQ(std::exchange(events, 0), 1);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  }
}

TEST_F(DialogsTest, ProgressShowsOnlyWhenItLasts) {
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
  const auto escape = [&] {
    QCoreApplication::postEvent(widget(form.txtamount),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, {}));
  };
  escape();
  app.progressBar(8, 10);
  EXPECT_FALSE(app.progressStopped()) << "the key came before the work could stop";
  QTest::qSleep(60);
  escape();
  app.progressBar(9, 10);
  EXPECT_TRUE(app.progressStopped());
  EXPECT_EQ(panel->findChild<QLabel*>()->text(), "Loading Ledger List....  Esc stops");
  whenAsked([&] {
    EXPECT_FALSE(panel->isVisible()) << "a question stands alone";
    QTest::keyClick(openBox(), Qt::Key_Return);
  });
  app.dialogs().MsgBox(saying("Import?"));
  app.showProgress(false);
  settle();
  app.showProgress(true);
  EXPECT_FALSE(app.progressStopped());
  app.progressWaits();
  panel = window()->findChild<QWidget*>("busy");
  EXPECT_TRUE(panel && panel->isVisible()) << "other programs take their time";
  // All of a text stands in the panel, and of one that is wider than the window both ends.
  for (const auto& [name, whole] :
       {std::pair(QString(60, u'n'), true), {QString(900, u'n'), false}}) {
    app.progressText(("Writing " + name + ".xls").toStdString());
    app.progressWaits();
    const auto* label = panel->findChild<QLabel*>();
    EXPECT_EQ(label->text().contains(name), whole);
    EXPECT_TRUE(label->text().startsWith("Writing n") && label->text().contains("n.xls"));
    EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width());
    EXPECT_TRUE(window()->rect().contains(panel->geometry()));
  }
  app.showProgress(false);
  EXPECT_EQ(form.txtamount.text(), "");
  EXPECT_EQ(window()->findChild<QWidget*>("busy"), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

// --- help ---------------------------------------------------------------------------------------

TEST(HelpPages, AreWholeAndBelongToTheirForms) {
  ASSERT_GE(helpTopics().size(), 2u);
  const QRegularExpression reference(QStringLiteral("(href|src)=\"([^\"]*)\""));
  std::set<QString> linked{QStringLiteral("index.html")};
  for (const HelpTopic& topic : helpTopics()) {
    SCOPED_TRACE(topic.file.toStdString());
    EXPECT_FALSE(topic.id.isEmpty());
    EXPECT_FALSE(topic.title.isEmpty());
    EXPECT_GT(topic.words.size(), 500);
    QFile page(topic.file);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(page.readAll());
    for (auto found = reference.globalMatch(html); found.hasNext();) {
      const QRegularExpressionMatch one = found.next();
      const QString name = one.captured(2);
      const bool isPicture = one.captured(1) == QStringLiteral("src");
      EXPECT_TRUE(isPicture ? !QImage(QStringLiteral(":/help/") + name).isNull()
                            : helpOfFile(name) != nullptr)
          << name.toStdString();
      if (topic.id == QStringLiteral("contents")) linked.insert(name);
    }
  }
  EXPECT_EQ(helpTopics().front().id, QStringLiteral("contents"));
  EXPECT_EQ(linked.size(), helpTopics().size()) << "the contents name every page";
  const std::pair<const char*, const char*> forms[] = {{"third", "2-2"},
                                                       {"frmcrtb", "2-2-1"},
                                                       {"frmjrnl", "journal"},
                                                       {"frmgrpmas", "groups"},
                                                       {"frmtbledmas", "ledgers"},
                                                       {"frmgrpRM", "binding"},
                                                       {"frmdelwhatinTB", "years"},
                                                       {"frmstatements", "statements"},
                                                       {"frmchanges", "changes"},
                                                       {"frmasof", "changes"},
                                                       {"frmlock", "years"},
                                                       {"frmvchimport", "import"}};
  for (const auto& [form, topic] : forms) {
    ASSERT_TRUE(helpOfForm(form)) << form;
    EXPECT_EQ(helpOfForm(form)->id, topic);
    EXPECT_EQ(helpTopic(topic), helpOfForm(form)) << "an id names one page";
  }
  EXPECT_EQ(helpWith("no such words anywhere").size(), 0u);
  EXPECT_EQ(helpWith("").size(), helpTopics().size());
}

TEST_F(DialogsTest, HelpShowsTheTopicAndClosesOnEscape) {
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

TEST_F(DesktopTest, NothingThatIsThrownReachesTheToolkit) {
  std::vector<std::string> logged;
  openForms.onError = [&](const std::string& where, const std::exception& error) {
    logged.push_back(where + ": " + error.what());
    throw std::bad_alloc();  // nor what the log throws
  };
  whenAsked([] { throw std::runtime_error("broken"); });
  whenAsked([] { throw 1; });
  settle();
  openForms.onError = {};
  const std::vector<std::string> expected = {
      "desktop\tNOTIFY: broken", "desktop\tNOTIFY: Something else than an error was thrown."};
  EXPECT_EQ(logged, expected);
}

}  // namespace
}  // namespace quillet::desktop
