// A report on the screen, page by page, to be read, printed, saved as PDF, copied as a table and
// sent to a dot-matrix printer.
#pragma once

#include <QMainWindow>
#include <functional>

#include "desktop/report_pages.h"

class QLabel;
class QScrollArea;

namespace quillet::desktop {

class ReportWindow : public QMainWindow {
 public:
  ReportWindow(const suite::Document& document, const QDate& printed);

  // Keys and buttons of the window.
  void print();
  void saveAs();
  void copyTable();
  void dotMatrix();
  void zoom(double factor);
  void fitWidth();

  // A person has closed it.
  std::function<void()> onClosed;

  double scale() const { return scale_; }
  int pageInView() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void addCommands();
  void setScale(double scale);
  void tellPage();
  void tellUnwritten(const QString& path);

  suite::Document document_;
  ReportPages pages_;
  QDate printed_;
  double scale_ = 1;  // screen pixels for a pixel of a 96-dpi page
  QScrollArea* area_;
  QWidget* paper_;
  QLabel* place_;
};

}  // namespace quillet::desktop
