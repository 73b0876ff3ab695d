// A report on the screen, page by page, to be read, printed, saved as PDF, copied as a table and
// sent to a dot-matrix printer.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>

#include "desktop/report_pages.h"

class QLabel;
class QScrollArea;
class QToolBar;

namespace quillet::desktop {

class ReportWindow : public QMainWindow {
 public:
  ReportWindow(const suite::Document& document, const QDate& printed, const ReportStyle& style,
               const QFont& font = {});

  // Lays the pages out anew; what was in view stays there.
  void use(const ReportStyle& style);

  // Keys and buttons of the window.
  void print();
  void saveAs();
  void copyTable();
  void dotMatrix();
  void zoom(double factor);
  void fitWidth();
  void turnSheets();  // from portrait to landscape and back
  void showPage(int page);

  // A person has closed it.
  std::function<void()> onClosed;

  double scale() const { return scale_; }
  const ReportPages& pages() const { return *pages_; }
  int pageInView() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QAction* addCommand(const QString& caption, const QList<QKeySequence>& keys,
                      void (ReportWindow::*run)());
  void addCommands();
  void placeOn(const QRect& room);
  void zoomIn() { zoom(1.25); }
  void zoomOut() { zoom(1 / 1.25); }
  void leave() { close(); }
  void setScale(double scale);
  void tellPage();
  void tellUnwritten(const QString& path);

  suite::Document document_;
  ReportStyle style_;
  std::unique_ptr<ReportPages> pages_;
  QDate printed_;
  double scale_ = 1;     // screen pixels for a pixel of a 96-dpi page
  bool fitting_ = true;  // until a person zooms
  QToolBar* bar_;
  QAction* landscape_;
  QScrollArea* area_;
  QWidget* paper_;
  QLabel* place_;
};

}  // namespace quillet::desktop
