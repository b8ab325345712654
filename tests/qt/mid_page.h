// The whole program in its window, turned to the mid-range page.
#pragma once

#include <string>

#include "qt/desk.h"
#include "qt/list_view.h"

namespace zelvo::test {

class MidPage : public SessionTest {
 protected:
  void SetUp() override {
    Start();
    ASSERT_EQ(panel::HandTab(panel::Form1.TabStrip1, panel::MidRangeTab), panel::HandResult::Done);
    Settle();
  }
  void ChooseMid(const std::string& chip) {
    EXPECT_EQ(panel::HandChoose(panel::Form1.Combo2, chip), panel::HandResult::Done);
    Settle();
  }
  QWidget* Show(panel::Window& one) {
    one.Load();
    Settle();
    QWidget* view = SecondaryWindow(one.Name());
    EXPECT_TRUE(view != nullptr && view->isVisible()) << one.Name();
    return view;
  }
  std::string MainList(const std::string& name) { return Find<desktop::Readout>(name)->text().toStdString(); }
  static std::string NewestEvent() {
    const std::string& line = panel::Form1.List4.Lines().front();
    return line.substr(line.find(":  ") + 11);
  }
};

}  // namespace zelvo::test
