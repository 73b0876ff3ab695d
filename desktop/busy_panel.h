// The busy indicator: a small panel over the window in front, with a line of text and a bar. It
// comes up only when the work lasts, so that nothing flickers; while it is there, what a person
// types and clicks is dropped, so that nothing is done behind the work's back.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>

class QFrame;
class QLabel;
class QProgressBar;
class QWidget;

namespace quillet::desktop {

class BusyPanel : public QObject {
 public:
  ~BusyPanel() override;

  // `over`: the window in front, or null.
  void begin(QWidget* over);
  void end();
  void setText(const QString& text);
  // `total` 0: no bar.
  void setBar(long done, long total);
  // Shows at once that something is waited for: the bar moves with each call.
  void wait();
  // The same in the midst of something that no event may disturb, also while nothing is busy; until
  // goOn(). The text of work that is busy comes back with its next step.
  void hold(QWidget* over, const QString& text);
  void goOn();
  // Whether a person pressed Escape. Asked by work that can stop; the panel says then that it can.
  bool stopped();

  // Takes the panel and the wait cursor away while a dialog asks something in the midst of work.
  class Pause {
   public:
    explicit Pause(BusyPanel& panel);
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    BusyPanel& panel_;
    bool wasBusy_;
  };

  bool visible() const;

 protected:
  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  void step();
  void draw();
  void arrange(const QString& text);
  void setProgress();
  void build();
  void place(const QString& text);
  void shield(bool on);

  bool busy_ = false;
  bool shielded_ = false;
  bool stoppable_ = false;
  bool stopped_ = false;
  bool waiting_ = false;
  bool held_ = false;  // by hold() alone: no work had begun it
  QElapsedTimer since_, painted_;
  QString text_;
  long done_ = 0, total_ = 0;
  QPointer<QWidget> over_;
  QPointer<QFrame> panel_;
  QPointer<QLabel> label_;
  QPointer<QProgressBar> bar_;
};

}  // namespace quillet::desktop
