#pragma once
// The serial-ports dialog's model: the Modem/Ports setting as text, with the ports found on the
// machine listed for reference.

#include <string>
#include <vector>

#include "line/field_form.h"

namespace parlane {

struct SerialPortEntry {
    std::string path;
    std::string name;  // shown in the device lists
};

class PortsForm : public FieldForm {
  public:
    PortsForm(const std::string& portsSetting, std::vector<SerialPortEntry> detected);

    TextBox txtPorts;      // paths separated by ";"
    ListControl lstPorts;  // the ports found: "name - path"

    // Adds the selected found port's path to txtPorts, unless it is there already.
    void lstPorts_DblClick();

  private:
    std::vector<SerialPortEntry> detected_;
};

// The paths of a Modem/Ports text: split at ";", trimmed, blanks left out.
std::vector<std::string> SplitPortsSetting(const std::string& text);

}  // namespace parlane
