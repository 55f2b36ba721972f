#pragma once
// frmDirectoryAdd: one telephone-directory entry, new or edited. The caller fills `Entry` and
// the title; Save stores it through the main window.

#include <string>

#include "config/field_rules.h"
#include "exchange/exchange_controls.h"
#include "store/directory.h"
#include "ui/controls.h"

namespace parlane {

class frmMain;

// Fills a Country box with the country names, sorted.
void FillCountryBox(ListControl& box);

class frmDirectoryAdd {
  public:
    frmDirectoryAdd(frmMain& main, DirectoryEntry entry) : Entry(std::move(entry)), main_(main) {}

    void Form_Load();
    int NumberField_KeyPress(int keyAscii) { return NumberFieldKey(keyAscii); }
    int Country_KeyPress(int) { return 0; }
    int Services_KeyPress(int keyAscii) { return keyAscii == KeyBackspace ? keyAscii : 0; }
    void Country_Click();
    void chkUseService_Click() { Services.Enabled = chkUseService.Value; }
    void cmdProviderItemOk_Click();
    void cmdProviderItemCancel_Click();

    // The values handed in and, after Save, out; Cancel empties the name.
    DirectoryEntry Entry;
    std::string OriginalName;

    // ----- Controls -----
    std::string Caption;
    TextBox txtName, txtCountryCode, txtAreaCode, txtNumber;
    ListControl Country, Services;
    ExchangeOption chkUseService;
    Label lblSaving;
    ExchangeButton cmdProviderItemOk, cmdProviderItemCancel;
    std::string focusedControl;
    bool unloaded = false;
    // What each field holds, shown in it while it is empty and as its tip.
    std::string NameHint, CountryHint, CountryCodeHint, AreaCodeHint, NumberHint;

  private:
    // False, with the message shown and the focus on the field, at the first check that fails.
    bool CheckFields();
    frmMain& main_;
};

}  // namespace parlane
