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

#include "desktop/dot_matrix_dialog.h"
#include "desktop/pdf.h"
#include "desktop/text.h"
#include "suite/text_report.h"

namespace quillet::desktop {
namespace {

constexpr int gap = 16;  // between pages
constexpr double screenDpi = 96;
constexpr double unitsPerPixel = ReportPages::unitsPerInch / screenDpi;

// The pages one under the other; only those in sight are painted.
class Paper : public QWidget {
 public:
  explicit Paper(const ReportPages& pages) : pages_(pages) { setScale(1); }

  void setScale(double scale) {
    scale_ = scale;
    setFixedSize(qRound(page().width()) + 2 * gap,
                 qRound((page().height() + gap) * pages_.count()) + gap);
    update();
  }
  QSizeF page() const { return pages_.size() / unitsPerPixel * scale_; }
  int pageAt(int y) const {
    return std::clamp(static_cast<int>((y - gap) / (page().height() + gap)), 0, pages_.count() - 1);
  }

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
      pages_.paint(painter, number);
      painter.restore();
    }
  }

 private:
  const ReportPages& pages_;
  double scale_ = 1;
};

Paper* paperOf(QWidget* widget) { return static_cast<Paper*>(widget); }

}  // namespace

ReportWindow::ReportWindow(const suite::Document& document, const QDate& printed)
    : document_(document), pages_(document_, printed), printed_(printed) {
  setObjectName(QStringLiteral("report"));
  setAttribute(Qt::WA_DeleteOnClose);
  const auto& headings = document_.headings();
  setWindowTitle(headings.empty() ? tr("Report") : toQt(headings.back().text));
  paper_ = new Paper(pages_);
  area_ = new QScrollArea(this);
  area_->setFrameStyle(QFrame::NoFrame);
  area_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  area_->setWidget(paper_);
  setCentralWidget(area_);
  place_ = new QLabel(this);
  addCommands();
  connect(area_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { tellPage(); });
  const QRect room = screen()->availableGeometry();
  resize(std::min(room.width() * 9 / 10, room.height() * (pages_.landscape() ? 14 : 11) / 10),
         room.height() * 9 / 10);
  move(room.center() - rect().center());
}

void ReportWindow::addCommands() {
  QToolBar* bar = addToolBar(tr("Report"));
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  const auto add = [&](const QString& caption, const QKeySequence& key, auto run) {
    QAction* action = bar->addAction(caption, this, run);
    action->setShortcut(key);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(QString(caption).remove(u'&'),
                                                     key.toString(QKeySequence::NativeText)));
  };
  add(tr("&Print ..."), QKeySequence::Print, [this] { print(); });
  add(tr("Save as P&DF ..."), QKeySequence::Save, [this] { saveAs(); });
  add(tr("Copy &table"), QKeySequence::Copy, [this] { copyTable(); });
  add(tr("Dot &matrix ..."), QKeySequence(QStringLiteral("Ctrl+M")), [this] { dotMatrix(); });
  bar->addSeparator();
  add(tr("Zoom &out"), QKeySequence::ZoomOut, [this] { zoom(1 / 1.25); });
  add(tr("Zoom &in"), QKeySequence::ZoomIn, [this] { zoom(1.25); });
  add(tr("Fit &width"), QKeySequence(QStringLiteral("Ctrl+0")), [this] { fitWidth(); });
  bar->addSeparator();
  add(tr("&Close"), QKeySequence::Close, [this] { close(); });
  auto* spring = new QWidget(bar);
  spring->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(spring);
  bar->addWidget(place_);
}

void ReportWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  fitWidth();
  area_->setFocus();
}

void ReportWindow::setScale(double scale) {
  const double at = area_->verticalScrollBar()->value() / scale_;
  scale_ = std::clamp(scale, 0.3, 5.0);
  paperOf(paper_)->setScale(scale_);
  area_->verticalScrollBar()->setValue(qRound(at * scale_));
  tellPage();
}

void ReportWindow::zoom(double factor) { setScale(scale_ * factor); }

void ReportWindow::fitWidth() {
  const double room = area_->viewport()->width() - 2 * gap - area_->verticalScrollBar()->width();
  setScale(std::min(2.0, room * unitsPerPixel / pages_.size().width()));
}

int ReportWindow::pageInView() const {
  const int middle = area_->verticalScrollBar()->value() + area_->viewport()->height() / 2;
  return paperOf(paper_)->pageAt(middle);
}

void ReportWindow::tellPage() {
  place_->setText(tr("Page %1 of %2  ").arg(pageInView() + 1).arg(pages_.count()));
}

void ReportWindow::closeEvent(QCloseEvent* event) {
  QMainWindow::closeEvent(event);
  // When the window has gone, for what is done then may wait for a person.
  if (onClosed) QTimer::singleShot(0, qApp, onClosed);
}

void ReportWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else {
    QMainWindow::keyPressEvent(event);
  }
}

void ReportWindow::print() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageOrientation(pages_.landscape() ? QPageLayout::Landscape : QPageLayout::Portrait);
  printer.setFullPage(true);
  printer.setFromTo(1, pages_.count());
  QPrintDialog dialog(&printer, this);
  dialog.setMinMax(1, pages_.count());
  if (dialog.exec() != QDialog::Accepted) return;
  const int first = std::max(1, printer.fromPage());
  const int last = printer.toPage() == 0 ? pages_.count() : printer.toPage();
  QPainter painter(&printer);
  const double scale = printer.resolution() / double{ReportPages::unitsPerInch};
  painter.scale(scale, scale);
  for (int page = first; page <= last; ++page) {
    if (page > first) printer.newPage();
    pages_.paint(painter, page - 1);
  }
}

void ReportWindow::saveAs() {
  QFileDialog dialog(this, tr("Save as PDF"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(tr("PDF files (*.pdf)"));
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  dialog.selectFile(tr("Trial balance.pdf"));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  const QString path = dialog.selectedFiles().constFirst();
  if (!savePdf(document_, path, printed_)) tellUnwritten(path);
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
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace quillet::desktop
