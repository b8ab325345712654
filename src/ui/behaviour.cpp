#include "ui/behaviour.h"

#include "image/fills.h"

namespace zelvo::ui {

void AttachBehaviour() {
  image::AttachToSelection();
  AttachMainWindow();
  AttachSpeedControls();
  AttachProgressWindows();
  AttachMemoryReviews();
  AttachValueReviews();
  AttachMidValueReviews();
  AttachConfigEditor();
  AttachMidConfigEditor();
  AttachCellEditors();
  AttachIdEditors();
  AttachMidRangePage();
  AttachSaveWindow();
  AttachInformation();
  AttachInterfaceChoice();
  AttachLineSettings();
  AttachComLineSettings();
  AttachPortCheck();
  AttachIdentification();
  AttachOverwriteWindows();
}

}  // namespace zelvo::ui
