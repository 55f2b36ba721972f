#include "ui/frm_directory_add.h"

#include <optional>

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

void FillCountryBox(ListControl& box) {
    std::vector<std::string> names;
    for (const auto& c : CountryTable()) names.emplace_back(c.country);
    box.Sorted = true;
    box.SetItems(std::move(names));
}

void frmDirectoryAdd::Form_Load() {
    cmdProviderItemOk.Caption = main_.LoadResString(sid::ButtonSave);
    cmdProviderItemCancel.Caption = main_.LoadResString(sid::ButtonCancel);
    chkUseService.Caption = main_.LoadResString(sid::CheckAlwaysUseThisCentre);
    lblSaving.Caption = main_.LoadResString(sid::SavingEllipsis);
    lblSaving.Visible = false;
    NameHint = main_.LoadResString(sid::TipNames);
    CountryHint = main_.LoadResString(sid::TipInternationalDiallingCodes);
    CountryCodeHint = main_.LoadResString(sid::TipCountryCode);
    AreaCodeHint = main_.LoadResString(sid::TipAreaCode);
    NumberHint = main_.LoadResString(sid::TipTelephoneNumber);
    FillCountryBox(Country);
    OriginalName = Entry.Name;
    txtName.Text = Entry.Name;
    txtCountryCode.Text = Entry.CountryCode;
    txtAreaCode.Text = Entry.AreaCode;
    txtNumber.Text = Entry.Number;
    Services.Clear();
    for (const auto& p : main_.Providers) Services.AddItem(p.ProviderName);
    Services.Enabled = false;
    for (int i = 0; i < Services.ListCount(); ++i) {
        if (Services.rows[static_cast<std::size_t>(i)] != Entry.ProviderName) continue;
        Services.select(i);
        chkUseService.Value = true;
        Services.Enabled = true;
    }
}

void frmDirectoryAdd::Country_Click() {
    txtCountryCode.Text = CountryDialCode(Country.Text);
    focusedControl = "txtAreaCode";
}

bool frmDirectoryAdd::CheckFields() {
    struct Check {
        const TextBox& field;
        int message;
        const char* name;
    };
    const Check checks[] = {
        {txtName, sid::PleaseEnterName, "txtName"},
        {txtCountryCode, sid::PleaseEnterCountryCode, "txtCountryCode"},
        {txtAreaCode, sid::PleaseEnterAreaCode, "txtAreaCode"},
        {txtNumber, sid::PleaseEnterNumber, "txtNumber"},
    };
    for (const auto& check : checks) {
        if (!check.field.Text.empty()) continue;
        main_.ShowMessageBox(main_.LoadResString(check.message), MbInformation);
        focusedControl = check.name;
        return false;
    }
    // Exact as to case: a new case of an existing name passes and then overwrites that entry.
    bool taken = false;
    {
        BusyCursor busy(main_);
        for (const auto& e : main_.Directory)
            if (e.Name == txtName.Text && OriginalName != txtName.Text) taken = true;
    }
    if (taken) {
        main_.ShowMessageBox(main_.LoadResString(sid::DirectoryNameExists), MbExclamation);
        focusedControl = "txtName";
        return false;
    }
    return true;
}

void frmDirectoryAdd::cmdProviderItemOk_Click() {
    if (!CheckFields()) return;
    Entry = {txtName.Text, txtCountryCode.Text, txtAreaCode.Text, txtNumber.Text,
             chkUseService.Value ? Services.Text : std::string()};
    lblSaving.Visible = true;
    main_.SaveDirectoryEntry(Entry);
    lblSaving.Visible = false;
    main_.UsePhoneEntry();
    main_.platform().loop.doEvents();
    unloaded = true;
}

void frmDirectoryAdd::cmdProviderItemCancel_Click() {
    Entry.Name.clear();
    unloaded = true;
}

}  // namespace parlane
