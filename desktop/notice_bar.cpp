#include "desktop/notice_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include "desktop/announce.h"
#include "desktop/text.h"
#include "desktop/theme.h"

namespace quillet::desktop {

NoticeBar::NoticeBar(QWidget& window) : QFrame(&window), text_(new QLabel(this)) {
  setObjectName(QStringLiteral("notice"));
  setFrameShape(QFrame::StyledPanel);
  // What a notice says may come from a table.
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  auto* close = new QPushButton(tr("Close (Shift+Esc)"), this);
  // A bar that takes the focus would take it from the entry.
  close->setFocusPolicy(Qt::NoFocus);
  const auto closed = [this] {
    if (onClosed) onClosed();
  };
  connect(close, &QPushButton::clicked, this, closed);
  connect(new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_Escape), &window), &QShortcut::activated,
          this, closed);
  const int step = theme::spacing(window);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(2 * step, step / 2, step, step / 2);
  row->addWidget(text_, 1);
  row->addWidget(close, 0, Qt::AlignTop);
  hide();
}

void NoticeBar::show(const std::vector<std::string>& notices) {
  if (!notices.empty()) {
    QString text = toQt(notices.back());
    const auto more = static_cast<int>(notices.size()) - 1;
    if (more > 0) text += tr(" (And %1 more before it.)").arg(more);
    const bool news = text_->text() != text || !isVisible();
    text_->setText(text);
    if (news) announce(*text_);
    QString all;
    for (const std::string& notice : notices) all += toQt(notice) + '\n';
    setToolTip(
        QStringLiteral("<p>%1</p>")
            .arg(all.trimmed().toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"))));
  }
  setVisible(!notices.empty());
}

}  // namespace quillet::desktop
