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
  AttachMidRangePage();
  AttachSaveWindow();
  AttachInformation();
  AttachIdentification();
  AttachOverwriteWindows();
}

}  // namespace zelvo::ui
