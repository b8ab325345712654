// What each window does, attached to the controls' hooks. One procedure for each unit of this folder.
#pragma once

namespace zelvo::ui {

/// All of the below, once before the first window is loaded.
void AttachBehaviour();

void AttachMainWindow();
void AttachSpeedControls();
void AttachProgressWindows();
void AttachMemoryReviews();
void AttachValueReviews();
void AttachMidValueReviews();
void AttachConfigEditor();
void AttachMidConfigEditor();
void AttachCellEditors();
void AttachIdEditors();
void AttachMidRangePage();
void AttachSaveWindow();
void AttachInformation();
void AttachInterfaceChoice();
void AttachLineSettings();
void AttachComLineSettings();
void AttachPortCheck();
void AttachIdentification();
void AttachOverwriteWindows();

}  // namespace zelvo::ui
