// Text and date boxes: what is typed, pasted and composed reaches the model through the handlers.
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QTableView>
#include <QTimer>

#include "controls/vtxt.h"
#include "desktop/desktop_test.h"
#include "desktop/text.h"

namespace quillet::desktop {
namespace {

class Typing : public DesktopTest {
 protected:
  QLineEdit* name() { return widget<QLineEdit>(form.txtname); }
  void expectShown(const std::string& text) {
    EXPECT_EQ(form.txtname.text(), text);
    EXPECT_EQ(fromQt(name()->text()), text);
  }
  void paste(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    key(Qt::Key_V, Qt::ControlModifier);
  }
};

TEST_F(Typing, EditsLikeAnyTextBox) {
  focus(form.txtname);
  type("ab1cd2");
  expectShown("ABCD");  // capitals by replacing, digits left out by discarding
  key(Qt::Key_Left);
  key(Qt::Key_Left);
  key(Qt::Key_Backspace);
  expectShown("ACD");
  key(Qt::Key_Delete);
  expectShown("AD");
  type("x");
  expectShown("AXD");
  EXPECT_EQ(form.txtname.selStart(), 2u);
  key(Qt::Key_Home, Qt::ShiftModifier);
  EXPECT_EQ(form.txtname.selLength(), 2u);
  type("q");
  expectShown("QD");
  key(Qt::Key_J, Qt::AltModifier);
  expectShown("QD");  // no access key, and no letter either
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_NE(form.txtname.text(), "QD") << "undo reaches the model";
  EXPECT_EQ(fromQt(name()->text()), form.txtname.text());
}

TEST_F(Typing, PastesThroughTheHandlersOnOneLine) {
  focus(form.txtname);
  paste("  rent 12\r\npaid\tnow \n");
  expectShown("RENT  PAID NOW");
  // A form that takes cells gets a range as it was copied, and a single one as typed text.
  std::string cells;
  form.txtname.PasteCells = [&](const std::string& range) { cells = range; };
  paste("a\tb\n");
  EXPECT_EQ(cells, "a\tb\n");
  expectShown("RENT  PAID NOW");
  paste("cash\n");
  expectShown("RENT  PAID NOWCASH");
}

class NumberForm : public Form {
 public:
  explicit NumberForm(OpenForms& formDesk) : Form(formDesk, "numbers") {
    box.ValidateData(1);
    box.MsgBox = [this](const std::string& text) {
      told.push_back(text);
      theApplication().dialogs().MsgBox({text, "", Buttons::OK, Icon::none, Answer::OK});
    };
  }
  LayoutItem layout() override { return column({item(box)}); }
  VTxt box{*this, "VTxt1"};
  std::vector<std::string> told;
};

TEST_F(Typing, APasteEndsAtTheFirstKeyThatIsRefusedWithAMessage) {
  NumberForm numbers(openForms);
  numbers.show();
  settle();
  QTimer answering;
  QObject::connect(&answering, &QTimer::timeout, [] {
    if (QWidget* box = QApplication::activeModalWidget()) QTest::keyClick(box, Qt::Key_Return);
  });
  answering.start(0);
  auto* line = theApplication().windows().of(numbers)->findChild<QLineEdit*>("VTxt1");
  ASSERT_TRUE(line);
  QGuiApplication::clipboard()->setText(" 12a34b5 ");
  QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(numbers.told, std::vector<std::string>{"Enter Numeric value"});
  EXPECT_EQ(numbers.box.text(), "12");
  EXPECT_EQ(fromQt(line->text()), "12");
  QGuiApplication::clipboard()->setText("+6-");
  QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(fromQt(line->text()), "12+6-") << "the next paste begins anew";
  EXPECT_EQ(numbers.told.size(), 1U);
}

TEST_F(Typing, CountsCharactersAndNotCodeUnits) {
  focus(form.txtname);
  const QString emoji = QString::fromUtf8("💰");  // one character, two code units
  paste(emoji + "ab" + emoji);
  expectShown("💰AB💰");
  EXPECT_EQ(form.txtname.selStart(), 4u);
  key(Qt::Key_Backspace);
  expectShown("💰AB");
  key(Qt::Key_Home);
  key(Qt::Key_Right);
  EXPECT_EQ(form.txtname.selStart(), 1u);
  type("x");
  expectShown("💰XAB");
  form.txtname.select(2, 2);
  settle();
  EXPECT_EQ(fromQt(name()->selectedText()), "AB");
}

TEST_F(Typing, ComposedTextPassesTheHandlersToo) {
  focus(form.txtname);
  QInputMethodEvent event;
  event.setCommitString(QString::fromUtf8("é 7z"));
  QCoreApplication::sendEvent(name(), &event);
  expectShown("É Z");
}

TEST_F(Typing, StopsAtTheMostCharacters) {
  form.txtname.setMaxLength(3);
  int refused = 0;
  form.txtname.Overflow = [&] { ++refused; };
  focus(form.txtname);
  paste("abcde");
  expectShown("ABC");
  EXPECT_EQ(refused, 1) << "the first that is refused ends a paste";
}

TEST_F(Typing, EnterGoesWhereTheHandlerSends) {
  focus(form.txtname);
  key(Qt::Key_Return);
  EXPECT_EQ(form.active(), &form.txtamount);
  EXPECT_TRUE(widget(form.txtamount)->hasFocus());
  type("5");
  EXPECT_EQ(form.txtamount.text(), "5");
}

TEST_F(Typing, LockedBoxesKeepTheirText) {
  focus(form.txttotal);
  type("9");
  key(Qt::Key_Backspace);
  paste("1");
  EXPECT_EQ(form.txttotal.text(), "1,23,456.00");
  EXPECT_EQ(fromQt(widget<QLineEdit>(form.txttotal)->text()), "1,23,456.00");
}

TEST_F(Typing, TheDateBoxIsTheModels) {
  focus(form.mskdate);
  type("2008");
  EXPECT_EQ(form.mskdate.text(), "01/04/2008");
  key(Qt::Key_Backspace);
  EXPECT_EQ(fromQt(widget<QLineEdit>(form.mskdate)->text()), "01/04/200_");
  form.mskdate.clear();
  settle();
  paste("31/03/2009");
  EXPECT_EQ(form.mskdate.text(), "31/03/2009");
  type("x");
  EXPECT_EQ(form.mskdate.text(), "31/03/2009");
}

TEST_F(Typing, TheDropDownFollowsWithoutTheFocus) {
  QWidget* list = widget(form.vsflist);
  ASSERT_TRUE(list);
  EXPECT_FALSE(list->isVisible());
  focus(form.txtname);
  EXPECT_TRUE(list->isVisible());
  key(Qt::Key_Down);
  key(Qt::Key_Down);
  EXPECT_EQ(form.vsflist.current(), 2);
  EXPECT_TRUE(name()->hasFocus());
  form.takeEvents();
  auto* table = list->findChild<QTableView*>();
  click(table->viewport(), table->visualRect(table->model()->index(3, 0)).center());
  EXPECT_EQ(form.takeEvents(), std::vector<std::string>{"picked Rent"});
  expectShown("Rent");
  EXPECT_TRUE(name()->hasFocus());
  key(Qt::Key_Tab);
  EXPECT_FALSE(list->isVisible());
}

}  // namespace
}  // namespace quillet::desktop
