// The help: topics at the left, the page at the right, a search over all pages. Escape closes it.
#pragma once

#include <QWidget>

class QLineEdit;
class QListWidget;
class QSplitter;
class QTextBrowser;

namespace quillet::desktop {

class HelpWindow : public QWidget {
 public:
  explicit HelpWindow(const QFont& font = {});

  // Brings up the topic; an id without a page brings up the first one.
  void showTopic(const QString& id);
  QString topic() const;
  // The share of the list of topics, in per cent.
  int division() const;
  void divide(int percent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void list();
  void open(const QString& id);
  void markFound();
  void dress();

  QSplitter* splitter_;
  QLineEdit* search_;
  QListWidget* topics_;
  QTextBrowser* page_;
};

}  // namespace quillet::desktop
