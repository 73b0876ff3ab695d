#include "desktop/dot_matrix_dialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "desktop/theme.h"

namespace quillet::desktop {
namespace {

const QString usualDevice = QStringLiteral("/dev/usb/lp0");

// What was chosen last serves again as long as the program runs.
QString lastTarget = usualDevice;
bool lastWide = false;

}  // namespace

DotMatrixDialog::DotMatrixDialog(QWidget* parent) : QDialog(parent) {
  setWindowTitle(tr("Dot matrix"));
  setObjectName(QStringLiteral("dotmatrix"));
  theme::likeParent(*this);
  narrow_ = new QRadioButton(tr("&80 columns"), this);
  wide_ = new QRadioButton(tr("&132 columns"), this);
  (lastWide ? wide_ : narrow_)->setChecked(true);
  target_ = new QLineEdit(lastTarget, this);
  target_->setMinimumWidth(theme::pixels(*this, 320));
  auto* label = new QLabel(tr("Device or &file"), this);
  label->setBuddy(target_);
  auto* other = new QPushButton(tr("&Browse ..."), this);
  connect(other, &QPushButton::clicked, this, [this] { browse(); });
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    lastTarget = target();
    lastWide = wide_->isChecked();
    accept();
  });
  const auto enable = [buttons, this] {
    buttons->button(QDialogButtonBox::Ok)->setEnabled(!target().isEmpty());
  };
  connect(target_, &QLineEdit::textChanged, this, enable);

  auto* widths = new QHBoxLayout;
  widths->addWidget(narrow_);
  widths->addWidget(wide_);
  widths->addStretch();
  auto* where = new QHBoxLayout;
  where->addWidget(label);
  where->addWidget(target_, 1);
  where->addWidget(other);
  auto* all = new QVBoxLayout(this);
  all->addLayout(widths);
  all->addLayout(where);
  all->addWidget(buttons);
}

QString DotMatrixDialog::target() const { return target_->text().trimmed(); }

suite::PaperWidth DotMatrixDialog::width() const {
  return wide_->isChecked() ? suite::PaperWidth::columns132 : suite::PaperWidth::columns80;
}

void DotMatrixDialog::browse() {
  const QString path = QFileDialog::getSaveFileName(this, windowTitle(), {}, tr("All files (*)"));
  if (!path.isEmpty()) target_->setText(path);
}

}  // namespace quillet::desktop
