#include "app/platform.h"

#include <QApplication>

#include <gtest/gtest.h>

// With the program's own style, faces and language.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  vellora::setUpPlatform(application);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
