#include "desktop/report_window.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPaintEvent>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTimer>
#include <QToolBar>
#include <algorithm>

#include "desktop/dialogs.h"
#include "desktop/dot_matrix_dialog.h"
#include "desktop/pdf.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "suite/text_report.h"

namespace quillet::desktop {
namespace {

constexpr int gap = 16;  // between pages
constexpr double screenDpi = 96;
constexpr double unitsPerPixel = ReportPages::unitsPerInch / screenDpi;

// The pages one under the other; only those in sight are painted.
class Paper : public QWidget {
 public:
  explicit Paper(const ReportPages& pages) : pages_(&pages) { setScale(1); }

  void setPages(const ReportPages& pages) {
    pages_ = &pages;
    setScale(scale_);
  }
  void setScale(double scale) {
    scale_ = scale;
    setFixedSize(qRound(page().width()) + 2 * gap,
                 qRound((page().height() + gap) * pages_->count()) + gap);
    update();
  }
  QSizeF page() const { return pages_->size() / unitsPerPixel * scale_; }
  int pageAt(int y) const {
    return std::clamp(static_cast<int>((y - gap) / (page().height() + gap)), 0,
                      pages_->count() - 1);
  }
  int topOf(int page) const { return qRound((this->page().height() + gap) * page); }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int first = pageAt(event->rect().top());
    const int last = pageAt(event->rect().bottom());
    for (int number = first; number <= last; ++number) {
      const QRectF sheet(QPointF(gap, gap + number * (page().height() + gap)), page());
      painter.setPen(palette().color(QPalette::Mid));
      painter.setBrush(Qt::white);  // paper is white in dark rooms too
      painter.drawRect(sheet);
      painter.save();
      painter.translate(sheet.topLeft());
      painter.scale(scale_ / unitsPerPixel, scale_ / unitsPerPixel);
      pages_->paint(painter, number);
      painter.restore();
    }
  }

 private:
  const ReportPages* pages_;
  double scale_ = 1;
};

Paper* paperOf(QWidget* widget) { return static_cast<Paper*>(widget); }

}  // namespace

ReportWindow::ReportWindow(const suite::Document& document, const QDate& printed,
                           const ReportStyle& style, const QFont& font)
    : document_(document),
      style_(style),
      pages_(std::make_unique<ReportPages>(document_, printed, style)),
      printed_(printed) {
  setObjectName(QStringLiteral("report"));
  setAttribute(Qt::WA_DeleteOnClose);
  setFont(font);
  const auto& headings = document_.headings();
  setWindowTitle(headings.empty() ? tr("Report") : toQt(headings.back().text));
  paper_ = new Paper(*pages_);
  area_ = new QScrollArea(this);
  area_->setFrameStyle(QFrame::NoFrame);
  area_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  area_->setWidget(paper_);
  area_->setAccessibleName(tr("Pages"));
  setCentralWidget(area_);
  place_ = new QLabel(this);
  addCommands();
  connect(area_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { tellPage(); });
  tellPage();
  placeOn(screen()->availableGeometry());
}

// The frame, which is not known yet, has its place on the screen, too.
void ReportWindow::placeOn(const QRect& room) {
  const QMargins frame(8, 32, 8, 8);
  const QRect most = room.marginsRemoved(frame);
  const int wanted = room.height() * (pages_->landscape() ? 14 : 11) / 10;
  resize(std::min(most.width(), std::max(wanted, bar_->sizeHint().width())),
         std::min(most.height(), room.height() * 9 / 10));
  const QRect whole = rect().marginsAdded(frame);
  move(room.center() - QRect(QPoint(), whole.size()).center());
}

QAction* ReportWindow::addCommand(const QString& caption, const QList<QKeySequence>& keys,
                                  void (ReportWindow::*run)()) {
  QAction* action = bar_->addAction(caption, this, run);
  action->setIconText(caption);  // with its access key
  action->setShortcuts(keys);
  action->setToolTip(QStringLiteral("%1 (%2)").arg(
      QString(caption).remove(u'&'), keys.constFirst().toString(QKeySequence::NativeText)));
  return action;
}

void ReportWindow::addCommands() {
  const auto keys = [](const char* text) { return QKeySequence(QString::fromLatin1(text)); };
  bar_ = addToolBar(tr("Report"));
  bar_->setFont(font());
  bar_->setMovable(false);
  bar_->setContextMenuPolicy(Qt::PreventContextMenu);
  addCommand(tr("&Print ..."), {QKeySequence::Print}, &ReportWindow::print);
  addCommand(tr("Save as P&DF ..."), {QKeySequence::Save}, &ReportWindow::saveAs);
  addCommand(tr("Copy &table"), {QKeySequence::Copy}, &ReportWindow::copyTable);
  addCommand(tr("Dot &matrix ..."), {keys("Ctrl+M")}, &ReportWindow::dotMatrix);
  bar_->addSeparator();
  landscape_ = addCommand(tr("&Landscape"), {keys("Ctrl+L")}, &ReportWindow::turnSheets);
  landscape_->setCheckable(true);
  landscape_->setChecked(pages_->landscape());
  bar_->addSeparator();
  addCommand(tr("Zoom &out"), {keys("Ctrl+-")}, &ReportWindow::zoomOut);
  // With and without Shift, which "+" takes on many keyboards.
  addCommand(tr("Zoom &in"), {keys("Ctrl++"), keys("Ctrl+=")}, &ReportWindow::zoomIn);
  addCommand(tr("Fit &width"), {keys("Ctrl+0")}, &ReportWindow::fitWidth);
  bar_->addSeparator();
  addCommand(tr("&Close"), {QKeySequence::Close}, &ReportWindow::leave);
  auto* spring = new QWidget(bar_);
  spring->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar_->addWidget(spring);
  bar_->addWidget(place_);
}

void ReportWindow::use(const ReportStyle& style) {
  const std::vector<std::size_t> rows = pages_->rowsOn(pageInView());
  style_ = style;
  auto pages = std::make_unique<ReportPages>(document_, printed_, style_);
  paperOf(paper_)->setPages(*pages);
  pages_ = std::move(pages);
  landscape_->setChecked(pages_->landscape());
  if (fitting_) fitWidth();
  showPage(rows.empty() ? 0 : pages_->pageOf(rows.back()));
}

void ReportWindow::turnSheets() {
  using Orientation = ReportStyle::Orientation;
  ReportStyle style = style_;
  style.orientation = pages_->landscape() ? Orientation::portrait : Orientation::landscape;
  use(style);
}

void ReportWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  fitWidth();
  area_->setFocus();
}

void ReportWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (fitting_) fitWidth();
}

void ReportWindow::setScale(double scale) {
  const double at = area_->verticalScrollBar()->value() / scale_;
  scale_ = std::clamp(scale, 0.3, 5.0);
  paperOf(paper_)->setScale(scale_);
  area_->verticalScrollBar()->setValue(qRound(at * scale_));
  tellPage();
}

void ReportWindow::zoom(double factor) {
  fitting_ = false;
  setScale(scale_ * factor);
}

void ReportWindow::fitWidth() {
  fitting_ = true;
  const double room = area_->width() - 2 * gap - area_->verticalScrollBar()->sizeHint().width();
  setScale(
      std::min(theme::pixels(*this, 200) / 100.0, room * unitsPerPixel / pages_->size().width()));
}

void ReportWindow::showPage(int page) {
  area_->verticalScrollBar()->setValue(paperOf(paper_)->topOf(page));
  tellPage();
}

int ReportWindow::pageInView() const {
  const int middle = area_->verticalScrollBar()->value() + area_->viewport()->height() / 2;
  return paperOf(paper_)->pageAt(middle);
}

void ReportWindow::tellPage() {
  place_->setText(tr("Page %1 of %2  ").arg(pageInView() + 1).arg(pages_->count()));
}

void ReportWindow::closeEvent(QCloseEvent* event) {
  QMainWindow::closeEvent(event);
  // When the window has gone, for what is done then may wait for a person.
  if (onClosed) QTimer::singleShot(0, qApp, onClosed);
}

void ReportWindow::keyPressEvent(QKeyEvent* event) {
  QScrollBar* bar = area_->verticalScrollBar();
  switch (event->key()) {
    case Qt::Key_Escape:
      close();
      break;
    case Qt::Key_Home:
      showPage(0);
      break;
    case Qt::Key_End:
      showPage(pages_->count() - 1);
      break;
    case Qt::Key_PageUp:
      bar->triggerAction(QAbstractSlider::SliderPageStepSub);
      break;
    case Qt::Key_PageDown:
      bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
      break;
    default:
      QMainWindow::keyPressEvent(event);
  }
}

void ReportWindow::print() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageOrientation(pages_->landscape() ? QPageLayout::Landscape : QPageLayout::Portrait);
  printer.setFullPage(true);
  printer.setFromTo(1, pages_->count());
  QPrintDialog dialog(&printer, this);
  dialog.setMinMax(1, pages_->count());
  theme::likeParent(dialog);
  if (dialog.exec() != QDialog::Accepted) return;
  const int first = std::max(1, printer.fromPage());
  const int last = printer.toPage() == 0 ? pages_->count() : printer.toPage();
  QPainter painter(&printer);
  const double scale = printer.resolution() / double{ReportPages::unitsPerInch};
  painter.scale(scale, scale);
  for (int page = first; page <= last; ++page) {
    if (page > first) printer.newPage();
    pages_->paint(painter, page - 1);
  }
}

void ReportWindow::saveAs() {
  QFileDialog dialog(this, tr("Save as PDF"));
  fit(dialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(tr("PDF files (*.pdf)"));
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  dialog.selectFile(toQt(document_.fileName() + ".pdf"));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  const QString path = dialog.selectedFiles().constFirst();
  if (!savePdf(document_, path, printed_, style_)) tellUnwritten(path);
}

void ReportWindow::copyTable() {
  QApplication::clipboard()->setText(toQt(suite::tabbedTextOf(document_)));
}

void ReportWindow::dotMatrix() {
  DotMatrixDialog dialog(this);
  if (dialog.exec() != QDialog::Accepted) return;
  QFile file(dialog.target());
  const std::string codes = suite::dotMatrixOf(document_, dialog.width());
  const auto size = static_cast<qint64>(codes.size());
  const bool written = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                       file.write(codes.data(), size) == size;
  if (!written) tellUnwritten(dialog.target());
}

void ReportWindow::tellUnwritten(const QString& path) {
  QMessageBox box(QMessageBox::Warning, windowTitle(),
                  tr("The file cannot be written:\n%1").arg(path), QMessageBox::Ok, this);
  theme::likeParent(box);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace quillet::desktop
