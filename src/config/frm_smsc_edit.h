#pragma once
// frmSMSCEdit: one service centre, new or edited. Save checks the fields, writes the record into
// Providers, keeps the table sorted and the main window's Services list in step; the command that
// opened the editor rewrites smsc.dat.

#include <array>
#include <cstdint>
#include <set>
#include <string>

#include "config/dev_config_editor.h"
#include "config/field_rules.h"
#include "exchange/exchange_controls.h"
#include "ui/controls.h"

namespace parlane {

class frmMain;

class frmSMSCEdit : public DevConfigEditor {
  public:
    static constexpr int kProtocols = 6;

    explicit frmSMSCEdit(frmMain& main) : main_(main) {}

    // Captions, the values of a new record, the device list with its default row.
    void Form_Load();
    // A new record that will stand at `index`; the dialling location gives the codes.
    void ProviderAdd(int index);
    // The record at `index`, with its own device and block.
    void ProviderEdit(int index);

    // The view has selected the row in cboTapiDevice first.
    void cboTapiDevice_Click();
    // &Properties: the device's own settings dialog over this centre's block.
    void cmdLineConfigDialog_Click();
    // The view has selected the row in Country first.
    void Country_Click();
    void optProtocol_Click(int index);
    // The view has set chkProviderMultiMessage.Value first.
    void chkProviderMultiMessage_Click();
    int NumberField_KeyPress(int keyAscii) const { return NumberFieldKey(keyAscii); }
    int Country_KeyPress(int) const { return 0; }
    int cboUCPOperation_KeyPress(int) const { return 0; }
    // txtProviderName, txtPassword and the number fields but txtMaxMessages.
    void TextField_GotFocus(TextBox& box) { SelectAll(box); }
    void txtMaxMessages_Change() { SelectAll(txtMaxMessages); }
    void cmdProviderItemOk_Click();
    void cmdProviderItemCancel_Click() { unloaded = true; }

    // The selected protocol's index, 0 (TAP) when none is selected.
    int SelectedProtocol() const;

    // ----- State -----
    int EditorRecordIndex = 0;
    bool EditingExisting = false;
    // Controls whose text held characters the code page cannot store; the view keeps it up to
    // date on every edit, so the user's text is never changed behind their back.
    std::set<std::string> NotStorable;

    // ----- Controls -----
    std::string Caption;
    TextBox txtProviderName, txtPassword, txtCountryCode, txtAreaCode, txtNumber,
        txtProviderMaxChars, txtMaxMessages;
    ListControl cboTapiDevice, Country, cboUCPOperation;
    std::array<CheckBox, kProtocols> optProtocol;  // Value: the selected one
    CheckBox chkProviderMultiMessage, chkASCII, chkDefaultSMSC, chkDefModem;
    // Label1 name, Label2 password, Label3 modem, Label4 number, Label5 maximum messages,
    // Label6 maximum length, Label7 operation type.
    Label Label1, Label2, Label3, Label4, Label5, Label6, Label7;
    ExchangeButton cmdLineConfigDialog, cmdProviderItemOk, cmdProviderItemCancel;
    std::string CountryHint, CountryCodeHint, AreaCodeHint, NumberHint;
    std::string focusedControl;
    bool unloaded = false;
    // The window the device's dialog belongs to.
    std::uintptr_t ownerWindow = 0;

  private:
    void ApplyProtocolRules();
    // False, with the message shown and the focus on the field, at the first check that fails.
    bool CheckFields();
    // Characters the code page lacks, or anything but digits and "+" pasted into a number.
    bool CheckTyping();
    void Refuse(int messageId, int flags, const char* control);
    frmMain& main_;
};

}  // namespace parlane
