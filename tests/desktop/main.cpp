// The tests of the window share one application without a display.
#include <gtest/gtest.h>

#include <QApplication>

int main(int count, char** words) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&count, words);
  QApplication application(count, words);
  return RUN_ALL_TESTS();
}
