#pragma once
// Qt views of the directory-entry and new-group dialogues. Each mirrors its model's fields,
// runs keys through the model's filters and its buttons through the model's handlers, and
// closes when the model unloads.

class QWidget;

namespace parlane {

class frmDirectoryAdd;
class frmGroupAdd;

// Both are modal and return when the dialogue has closed.
void ShowDirectoryAddDialog(QWidget* owner, frmDirectoryAdd& model);
void ShowGroupAddDialog(QWidget* owner, frmGroupAdd& model);

}  // namespace parlane
