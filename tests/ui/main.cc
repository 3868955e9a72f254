// The skin's tests run without a display unless one is asked for.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>

namespace {

/// A test that ended the program leaves no trace: the toolkit runs no event loop after an exit
/// until the application's own one has run.
class FreshEventLoop : public testing::EmptyTestEventListener {
 public:
  void OnTestEnd(const testing::TestInfo& /*test*/) override {
    QTimer::singleShot(0, [] { QApplication::exit(); });
    QApplication::exec();
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::UnitTest::GetInstance()->listeners().Append(new FreshEventLoop);
  return RUN_ALL_TESTS();
}
