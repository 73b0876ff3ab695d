#include <QTimer>

#include "desktop/desktop_test.h"

namespace quillet::desktop {
namespace {

Application* application = nullptr;

}  // namespace

Application& theApplication() { return *application; }

void whenAsked(std::function<void()> answer) { QTimer::singleShot(0, qApp, std::move(answer)); }

}  // namespace quillet::desktop

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  quillet::desktop::Application application(argc, argv);
  application.setTheme(quillet::desktop::theme::Scheme::light);  // one look everywhere
  quillet::desktop::application = &application;
  return RUN_ALL_TESTS();
}
