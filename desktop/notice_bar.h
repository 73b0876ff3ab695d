// A quiet line at the foot of a window: what was not done, and when. It stays until it is closed.
#pragma once

#include <QFrame>
#include <QString>
#include <functional>
#include <string>
#include <vector>

class QLabel;

namespace quillet::desktop {

class NoticeBar : public QFrame {
 public:
  explicit NoticeBar(QWidget& window);

  // Shows the last of them, and says how many more there are; hides the bar when there is none.
  void show(const std::vector<std::string>& notices);

  std::function<void()> onClosed;

 private:
  QLabel* text_;
};

}  // namespace quillet::desktop
