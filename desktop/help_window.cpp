#include "desktop/help_window.h"

#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "desktop/help_topics.h"
#include "desktop/theme.h"

namespace quillet::desktop {
namespace {

// Its pictures are never wider than the window shows them.
class Page : public QTextBrowser {
 public:
  using QTextBrowser::QTextBrowser;

 protected:
  QVariant loadResource(int type, const QUrl& name) override {
    if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
    QImage picture(QStringLiteral(":/help/") + name.path());
    const double ratio = devicePixelRatioF();
    const int bar = verticalScrollBar()->sizeHint().width();
    const int room =
        qRound((width() - 2 * frameWidth() - bar - 2 * document()->documentMargin()) * ratio);
    if (picture.width() > room) picture = picture.scaledToWidth(room, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
  }
};

}  // namespace

HelpWindow::HelpWindow(const QFont& font) {
  setFont(font);
  setObjectName(QStringLiteral("help"));
  setWindowTitle(tr("Help"));
  const int step = theme::spacing(*this);
  splitter_ = new QSplitter(this);
  auto* left = new QWidget(splitter_);
  auto* column = new QVBoxLayout(left);
  column->setContentsMargins(0, 0, step, 0);
  column->setSpacing(step);
  search_ = new QLineEdit(left);
  search_->setPlaceholderText(tr("Search"));
  search_->setClearButtonEnabled(true);
  topics_ = new QListWidget(left);
  topics_->setWordWrap(true);
  column->addWidget(search_);
  column->addWidget(topics_);
  page_ = new Page(splitter_);
  page_->setOpenLinks(false);
  page_->document()->setDocumentMargin(2 * step);
  divide(26);
  splitter_->setCollapsible(0, false);
  splitter_->setCollapsible(1, false);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(step, step, step, step);
  whole->addWidget(splitter_);
  dress();
  list();
  connect(search_, &QLineEdit::textChanged, this, [this] { list(); });
  connect(topics_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0) open(topics_->item(row)->data(Qt::UserRole).toString());
  });
  connect(page_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    if (const HelpTopic* linked = helpOfFile(link.path())) showTopic(linked->id);
  });
  const QRect room = screen()->availableGeometry();
  resize(std::min(room.width() * 8 / 10, 120 * step), std::min(room.height() * 9 / 10, 90 * step));
  move(room.center() - rect().center());
}

int HelpWindow::division() const {
  const QList<int> sizes = splitter_->sizes();
  return qRound(100.0 * sizes.first() / std::max(1, sizes.first() + sizes.last()));
}

void HelpWindow::divide(int percent) {
  splitter_->setSizes({100 * percent, 100 * (100 - percent)});
}

void HelpWindow::dress() {
  const QPalette colours = palette();
  const QString sheet =
      QStringLiteral(
          "h1{font-size:x-large;font-weight:600;} h2{font-size:large;font-weight:600;}"
          "p,li{line-height:135%;} a{color:%1;} th{text-align:left;color:%2;}"
          "pre{background-color:%3;} td,th{padding:3px 16px 3px 0;} code,kbd{background-color:%3;}")
          .arg(colours.color(QPalette::Link).name(), theme::dimmed(colours).name(),
               theme::emphasis(colours).name());
  page_->document()->setDefaultStyleSheet(sheet);
}

void HelpWindow::list() {
  const QString before = topic();
  const QSignalBlocker quiet(topics_);
  topics_->clear();
  int row = -1;
  for (const HelpTopic* found : helpWith(search_->text())) {
    auto* item = new QListWidgetItem(found->title, topics_);
    item->setData(Qt::UserRole, found->id);
    if (found->id == before) row = topics_->count() - 1;
  }
  if (topics_->count() == 0) return;
  topics_->setCurrentRow(std::max(row, 0));
  open(topic());
}

QString HelpWindow::topic() const {
  const QListWidgetItem* item = topics_->currentItem();
  return item ? item->data(Qt::UserRole).toString() : QString();
}

void HelpWindow::showTopic(const QString& id) {
  search_->clear();
  for (int row = 0; row < topics_->count(); ++row) {
    if (topics_->item(row)->data(Qt::UserRole).toString() == id) topics_->setCurrentRow(row);
  }
  page_->setFocus();
}

void HelpWindow::open(const QString& id) {
  const HelpTopic* found = helpTopic(id.toStdString());
  QFile file(found ? found->file : QString());
  if (!found || !file.open(QIODevice::ReadOnly)) return;
  page_->setHtml(QString::fromUtf8(file.readAll()));
  markFound();
}

void HelpWindow::markFound() {
  QList<QTextEdit::ExtraSelection> marks;
  for (const QString& word : search_->text().split(u' ', Qt::SkipEmptyParts)) {
    for (QTextCursor at = page_->document()->find(word); !at.isNull();
         at = page_->document()->find(word, at)) {
      QTextEdit::ExtraSelection mark;
      mark.cursor = at;
      mark.format.setBackground(theme::selection(palette()));
      marks << mark;
    }
  }
  page_->setExtraSelections(marks);
  if (marks.isEmpty()) return;
  const auto first = std::min_element(
      marks.begin(), marks.end(), [](const auto& a, const auto& b) { return a.cursor < b.cursor; });
  QTextCursor at = first->cursor;
  at.clearSelection();
  page_->setTextCursor(at);
  page_->ensureCursorVisible();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else {
    QWidget::keyPressEvent(event);
  }
}

// Now it is known how much room there is for pictures.
void HelpWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  open(topic());
}

void HelpWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && page_) {
    dress();
    open(topic());
  }
}

}  // namespace quillet::desktop
