#include "desktop/dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTreeView>

#include "desktop/busy_panel.h"
#include "desktop/form_window.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "desktop/windows.h"
#include "view/message_texts.h"

namespace quillet::desktop {
namespace {

// Of a message. Qt would break what is wider than 500 pixels with the icon, and only that.
constexpr int usualTextWidth = 450;

QMessageBox::Icon iconOf(Icon icon) {
  switch (icon) {
    case Icon::information:
      return QMessageBox::Information;
    case Icon::question:
      return QMessageBox::Question;
    case Icon::exclamation:
      return QMessageBox::Warning;
    case Icon::critical:
      return QMessageBox::Critical;
    case Icon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButton buttonOf(Answer answer) {
  switch (answer) {
    case Answer::Yes:
      return QMessageBox::Yes;
    case Answer::No:
      return QMessageBox::No;
    case Answer::Cancel:
      return QMessageBox::Cancel;
    case Answer::OK:
      break;
  }
  return QMessageBox::Ok;
}

// As Qt writes it.
QStringList filtersOf(const std::string& filter) {
  QStringList filters;
  for (const auto& [name, pattern] : view::fileKinds(filter)) {
    const QString patterns = toQt(pattern).replace(u';', u' ');
    filters << QStringLiteral("%1 (%2)").arg(toQt(name), patterns);
  }
  return filters;
}

QLabel* textOf(const QMessageBox& box) {
  return box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
}

// Qt breaks the lines at so many pixels of the screen, however large the font is, and leaves the
// title no room.
void widen(QMessageBox& box) {
  QLabel* text = textOf(box);
  if (!text) return;
  const QString title =
      box.windowTitle() + QStringLiteral(" \u2014 ") + qApp->applicationDisplayName();
  const int wanted = std::max(text->sizeHint().width(), box.fontMetrics().horizontalAdvance(title));
  text->setMinimumWidth(std::min(wanted, theme::pixels(box, usualTextWidth)));
}

// A text too long for the screen is read by scrolling, so that the buttons stay in sight.
void scrollLongText(QMessageBox& box) {
  QLabel* text = textOf(box);
  const int most = box.screen()->availableSize().height() / 2;
  if (!text || !box.layout() || text->sizeHint().height() <= most) return;
  auto* area = new QScrollArea(&box);
  area->setObjectName(QStringLiteral("longtext"));
  area->setFrameShape(QFrame::NoFrame);
  delete box.layout()->replaceWidget(text, area);
  area->setWidget(text);
  const int width = std::max(text->sizeHint().width(), text->minimumWidth());
  area->setMinimumSize(width + area->verticalScrollBar()->sizeHint().width(), most);
}

}  // namespace

void fit(QFileDialog& dialog) {
  theme::likeParent(dialog);
  const QSize wanted(theme::pixels(dialog, 640), theme::pixels(dialog, 420));
  dialog.resize(wanted.boundedTo(dialog.screen()->availableSize() * 9 / 10));
  if (const auto* files = dialog.findChild<QTreeView*>()) {
    files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  }
}

QWidget* DesktopDialogs::prepare() {
  // A person answers by what the windows show, so they show how things stand now.
  windows_.refresh();
  QWidget* modal = QApplication::activeModalWidget();
  return modal ? modal : windows_.front();
}

Answer DesktopDialogs::MsgBox(const Message& message) {
  const BusyPanel::Pause pause(busy_);
  QMessageBox box(prepare());
  theme::likeParent(box);
  box.setObjectName(QStringLiteral("message"));
  box.setWindowTitle(toQt(view::titleOf(message)));
  box.setTextFormat(Qt::PlainText);
  box.setText(toQt(view::textOf(message)));
  box.setIcon(iconOf(message.icon));
  const std::vector<Answer> answers = view::answersOf(message.buttons);
  for (const Answer answer : answers) box.addButton(buttonOf(answer));
  box.setDefaultButton(buttonOf(view::defaultOf(message)));
  widen(box);
  scrollLongText(box);
  const int button = box.exec();
  for (const Answer answer : answers) {
    if (button == buttonOf(answer)) return answer;
  }
  return view::whenClosed(message.buttons);
}

std::optional<std::string> DesktopDialogs::saveFile(const std::string& filter,
                                                    const std::string& proposed) {
  const BusyPanel::Pause pause(busy_);
  QFileDialog dialog(prepare(), QObject::tr("Save as"));
  fit(dialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // Whether a file that is there may be overwritten is the form's own question.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setNameFilters(filtersOf(filter));
  const QFileInfo file(toQt(proposed));
  if (!file.path().isEmpty()) dialog.setDirectory(file.path());
  dialog.selectFile(file.fileName());
  if (!file.suffix().isEmpty()) dialog.setDefaultSuffix(file.suffix());
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return fromQt(dialog.selectedFiles().constFirst());
}

std::optional<std::string> DesktopDialogs::openFile(const std::string& filter,
                                                    const std::string& folder) {
  const BusyPanel::Pause pause(busy_);
  QFileDialog dialog(prepare(), QObject::tr("Open"));
  fit(dialog);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters(filtersOf(filter));
  if (QFileInfo(toQt(folder)).isDir()) dialog.setDirectory(toQt(folder));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return fromQt(dialog.selectedFiles().constFirst());
}

std::optional<std::string> DesktopDialogs::password(const std::string& prompt) {
  const BusyPanel::Pause pause(busy_);
  QInputDialog dialog(prepare());
  theme::likeParent(dialog);
  dialog.setWindowTitle(QObject::tr("Password"));
  dialog.setLabelText(toQt(prompt).toHtmlEscaped());
  dialog.setTextEchoMode(QLineEdit::Password);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return fromQt(dialog.textValue());
}

}  // namespace quillet::desktop
