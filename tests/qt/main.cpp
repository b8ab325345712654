// The window tests bring their own main: every test needs an application and the desktop's looks.
#include <gtest/gtest.h>

#include <QApplication>

#include "qt/desktop.h"

int main(int count, char** words) {
  testing::InitGoogleTest(&count, words);
  QApplication application(count, words);
  zelvo::desktop::PrepareApplication(application);
  return RUN_ALL_TESTS();
}
