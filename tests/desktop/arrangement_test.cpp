// An arrangement that changes while its form is shown: what stays keeps its widgets.
#include <unistd.h>

#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTableView>
#include <filesystem>

#include "desktop/desktop_test.h"
#include "desktop/text.h"
#include "suite/settings.h"

namespace quillet::desktop {
namespace {

// The colours that a person prefers are those of the open windows at once. A menu of the suite
// joins the form's own of that title.
TEST_F(DesktopTest, TakesPreferencesAndMenusOfTheSuite) {
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("preferences-" + std::to_string(getpid()));
  suite::Settings settings(file);
  const auto isDark = [&](const char* theme) {
    settings.set("Settings", "Theme", theme);
    theApplication().usePreferences(settings);
    settle();
    return window()->palette().window().color().lightness() < 128;
  };
  EXPECT_TRUE(isDark("DARK"));
  EXPECT_FALSE(isDark("light"));

  // Amounts are divided where nobody types, and the form knows nothing of it.
  const auto painted = [&](const char* grouping) {
    settings.set("Settings", "Grouping", grouping);
    theApplication().usePreferences(settings);
    settle();
    const QStringList texts{widget<QTableView>(form.vsf)->model()->index(2, 3).data().toString(),
                            widget<QLineEdit>(form.txttotal)->text(),
                            widget<QLineEdit>(form.txtamount)->text(),
                            widget<QLabel>(form.lblhint)->text()};
    return texts.join("|").toStdString();
  };
  form.txtamount.setText("123456.00");
  form.lblhint.setCaption("Difference 123,456.00 Dr");
  EXPECT_EQ(painted("lakhs"), "10,00,000.00|1,23,456.00|123456.00|Difference 1,23,456.00 Dr");
  EXPECT_EQ(painted("thousands"), "1,000,000.00|123,456.00|123456.00|Difference 123,456.00 Dr");
  focus(form.txttotal);
  EXPECT_EQ(widget<QLineEdit>(form.txttotal)->text(), "1,23,456.00");
  focus(form.txtamount);
  EXPECT_EQ(widget<QLineEdit>(form.txttotal)->text(), "123,456.00");
  EXPECT_EQ(painted("written"), "1000000.00|1,23,456.00|123456.00|Difference 123,456.00 Dr");
  EXPECT_EQ(form.txttotal.text() + form.vsf.cell(3, 3), "1,23,456.001000000.00");
  std::filesystem::remove(file);

  QMenu more("&Entry"), other("&Other");
  const QAction* last = more.addAction("Last");
  window()->addMenu(more);
  window()->addMenu(other);
  const QList<QAction*> headings = window()->menuBar()->actions();
  ASSERT_EQ(headings.size(), 3);
  EXPECT_EQ(headings.front()->menu()->actions().last(), last);
  EXPECT_EQ(headings.last()->menu(), &other);
}

// What a person arranged is there again in the next run, as far as the screen has room.
TEST_F(DesktopTest, WindowsAndColumnsStayAsAPersonLeftThem) {
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("places-" + std::to_string(getpid()));
  suite::Settings settings(file);
  theApplication().keepPlacesIn(&settings);
  const auto again = [&] {
    form.close();
    settle();
    form.fillGrid();
    form.show();
    settle();
  };
  const QSize given = window()->size();
  const QSize arranged(given.width() + 10, given.height() - 40);
  again();
  EXPECT_EQ(settings.get("Windows", form.name()), "") << "nobody changed it";
  window()->resize(arranged);
  window()->move(15, 20);
  auto* header = widget<QTableView>(form.vsf)->horizontalHeader();
  header->resizeSection(3, header->sectionSize(3) * 2);
  const int wide = form.vsf.columns()[3].width;
  settle();
  EXPECT_EQ(settings.get("Columns", "demo.vsf.Amount"), "") << "written when the window closes";
  again();
  EXPECT_EQ(window()->size(), arranged);
  EXPECT_EQ(window()->pos(), QPoint(15, 20));
  EXPECT_EQ(form.vsf.columns()[3].width, wide);

  const QRect room = window()->screen()->availableGeometry();
  for (const char* kept : {"9000x8000+0+0", "640x480+5000-3000", "640x480+5000-3000 maximized"}) {
    settings.set("Windows", form.name(), kept);
    // What the window closes with is kept in its place.
    form.close();
    settings.set("Windows", form.name(), kept);
    form.show();
    settle();
    EXPECT_TRUE(room.contains(QRect(window()->pos(), window()->size()))) << kept;
  }
  for (const char* kept : {"", "x", "0x0+0+0", "640x480", "640x-480+1+1", "1e9x1e9+0+0"}) {
    window()->showNormal();
    form.close();
    settings.set("Windows", form.name(), kept);
    settings.set("Columns", "demo.vsf.Amount", kept);
    form.fillGrid();
    form.show();
    settle();
    EXPECT_EQ(window()->size(), given) << kept;
    EXPECT_EQ(form.vsf.columns()[3].width, 16) << kept;
  }
  theApplication().keepPlacesIn(nullptr);
  std::filesystem::remove(file);
}

// Lines of which some are in view, the first of them with a label.
class LinesForm : public Form {
 public:
  explicit LinesForm(OpenForms& formDesk) : Form(formDesk, "lines") {}

  LayoutItem layout() override {
    std::vector<LayoutItem> lines{item(lblabove)};
    for (int line = top; line < std::min(top + inView, txtline.size()); ++line) {
      lines.push_back(
          row({line == top ? field("&Line", txtline[line], 20) : item(txtline[line], 0, 20)}));
    }
    lines.push_back(item(lblbelow));
    return stack({framed(fambase, {framed(famlines, std::move(lines)), item(cmdok)})});
  }
  void scroll(int first, int rows) {
    top = first;
    while (txtline.size() < rows) txtline.load("");
    while (txtline.size() > rows) txtline.unload();
    arrangementChanged();
  }

  static constexpr int inView = 3;
  int top = 0;
  Frame fambase{*this, "fambase"};
  Frame famlines{*this, "famlines", "Lines"};
  Label lblabove{*this, "lblabove", "above"};
  Label lblbelow{*this, "lblbelow", "below"};
  Button cmdok{*this, "cmdok", "OK"};
  ControlArray<TextBox> txtline{*this, "txtline", {""}};
};

class Arrangement : public DesktopTest {
 protected:
  Arrangement() { lines.show(); }
  ~Arrangement() override { lines.close(); }

  void show(int first, int rows) {
    lines.scroll(first, rows);
    settle();
    expectInOrder();
  }
  QList<QLineEdit*> boxes() {
    QList<QLineEdit*> shown;
    for (auto* box : linesWindow()->findChildren<QLineEdit*>()) {
      if (box->isVisible()) shown.push_back(box);
    }
    std::sort(shown.begin(), shown.end(), [](auto* a, auto* b) { return topOf(a) < topOf(b); });
    return shown;
  }
  QWidget* find(const char* name) { return linesWindow()->findChild<QWidget*>(name); }
  FormWindow* linesWindow() { return theApplication().windows().of(lines); }
  static int topOf(QWidget* widget) { return widget->mapTo(widget->window(), QPoint()).y(); }

  void expectInOrder() {
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), std::min(lines.inView, lines.txtline.size() - lines.top));
    int above = topOf(find("lblabove"));
    for (int at = 0; at < shown.size(); ++at) {
      EXPECT_EQ(shown[at]->objectName(), "txtline" + QString::number(lines.top + at));
      EXPECT_EQ(fromQt(shown[at]->text()), lines.txtline[lines.top + at].text());
      EXPECT_GT(topOf(shown[at]), above + (at > 0 ? shown[at]->height() : 0));
      above = topOf(shown[at]);
    }
    EXPECT_GT(topOf(find("lblbelow")), above + shown.back()->height() - 1);
    EXPECT_GT(topOf(find("cmdok")), topOf(find("lblbelow")));
    int labels = 0;
    for (QLabel* label : linesWindow()->findChildren<QLabel*>()) {
      if (!label->isVisible() || label->text() != "&Line") continue;
      ++labels;
      EXPECT_EQ(label->buddy(), shown.front());
    }
    EXPECT_EQ(labels, 1);
  }

  LinesForm lines{openForms};
};

TEST_F(Arrangement, KeepsTheWidgetsOfControlsThatStay) {
  show(0, 2);
  lines.txtline[1].setText("typed");
  lines.focus(lines.txtline[1]);
  const auto before = boxes();
  show(0, 3);
  EXPECT_EQ(boxes().first(2), before);
  EXPECT_TRUE(before[1]->hasFocus());
  show(1, 4);
  EXPECT_EQ(boxes().front(), before[1]);
  EXPECT_TRUE(before[1]->hasFocus()) << "the label that it has got";
  QTest::keyClick(linesWindow(), Qt::Key_L, Qt::AltModifier);
  EXPECT_EQ(lines.active(), &lines.txtline[1]);
  show(0, 5);
  EXPECT_EQ(boxes()[1], before[1]);
}

// A control may stand where a removed one stood in memory.
TEST_F(Arrangement, ShowsNothingOfRemovedControls) {
  show(0, 3);
  for (int line = 0; line < 3; ++line) lines.txtline[line].setText("old");
  settle();
  lines.scroll(0, 1);
  show(0, 3);
  EXPECT_EQ(boxes().back()->text(), "");
  lines.scroll(0, 1);
  lines.txtline.unload();
  lines.txtline.load("");
  show(0, 1);
  EXPECT_EQ(boxes().front()->text(), "");
}

}  // namespace
}  // namespace quillet::desktop
