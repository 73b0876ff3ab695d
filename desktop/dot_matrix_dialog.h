// Asks for the paper's width and for where the printer's characters go: a device or a file.
#pragma once

#include <QDialog>

#include "suite/dot_matrix.h"

class QLineEdit;
class QRadioButton;

namespace quillet::desktop {

class DotMatrixDialog : public QDialog {
 public:
  explicit DotMatrixDialog(QWidget* parent);

  QString target() const;
  suite::PaperWidth width() const;

 private:
  void browse();

  QRadioButton* narrow_;
  QRadioButton* wide_;
  QLineEdit* target_;
};

}  // namespace quillet::desktop
