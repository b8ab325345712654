#include "ui/behaviour.h"

#include "image/fills.h"

namespace zelvo::ui {

void AttachBehaviour() {
  image::AttachToSelection();
  AttachMainWindow();
  AttachSpeedControls();
  AttachProgressWindows();
  AttachFlashReview();
  AttachIdentification();
  AttachOverwriteWindows();
}

}  // namespace zelvo::ui
