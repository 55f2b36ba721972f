#pragma once
// The Qt view of the centre editor: it mirrors frmSMSCEdit's fields, runs keys, focus and
// clicks through the model's handlers, and closes when the model unloads.

class QWidget;

namespace parlane {

class frmSMSCEdit;
class frmFirstCentre;

// Modal; each returns when the dialogue has closed.
void ShowCentreEditDialog(QWidget* owner, frmSMSCEdit& model);
// The offer made while no centre can be dialled; closing it by its frame is Later.
void ShowFirstCentreDialog(QWidget* owner, frmFirstCentre& model);

}  // namespace parlane
