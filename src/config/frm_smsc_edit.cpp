#include "config/frm_smsc_edit.h"

#include <algorithm>
#include <cmath>

#include "core/settings_store.h"
#include "core/string_ids.h"
#include "line/tapi_text.h"
#include "ui/frm_directory_add.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

constexpr int kProtocolCaptions[frmSMSCEdit::kProtocols] = {
    sid::ProtocolTap,    sid::ProtocolUcp, sid::ProtocolVoda,
    sid::ProtocolOrange, sid::ProtocolTim, sid::ProtocolLibertel};

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool DigitsAndPlus(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) {
        return IsDigitKey(static_cast<unsigned char>(c)) || c == '+';
    });
}

}  // namespace

void frmSMSCEdit::Form_Load() {
    const auto text = [this](int id) { return main_.LoadResString(id); };
    Caption = text(sid::TitleFrmSmscEdit);
    Label1.Caption = text(sid::LabelServiceCentreName);
    Label2.Caption = text(sid::LabelLogonPassword);
    Label3.Caption = text(sid::LabelModem);
    Label4.Caption = text(sid::LabelServiceCentreNumber);
    Label5.Caption = text(sid::LabelMaximumNoOfMessages);
    Label6.Caption = text(sid::LabelMaximumMessageLength);
    Label7.Caption = text(sid::LabelOperationType);
    CountryHint = text(sid::TipInternationalDiallingCodes);
    CountryCodeHint = text(sid::TipCountryCode);
    AreaCodeHint = text(sid::TipAreaCode);
    NumberHint = text(sid::TipTelephoneNumber);
    cmdLineConfigDialog.Caption = text(sid::MenuModems);
    cmdProviderItemOk.Caption = text(sid::ButtonSave);
    cmdProviderItemCancel.Caption = text(sid::ButtonCancel);
    chkProviderMultiMessage.Caption = text(sid::CheckMultipleMessages);
    chkASCII.Caption = text(sid::CheckAllowAscii);
    chkDefaultSMSC.Caption = text(sid::CheckDefaultSmsc);
    chkDefModem.Caption = text(sid::CheckDefaultModemForAll);
    for (int i = 0; i < kProtocols; ++i)
        optProtocol[static_cast<std::size_t>(i)].Caption = text(kProtocolCaptions[i]);

    FillCountryBox(Country);
    Country.Text = text(sid::CountryCodesText);
    cboUCPOperation.SetItems({"01", "30", "51"});
    cboUCPOperation.select(0);
    txtProviderMaxChars.Text = "160";
    txtMaxMessages.Text = "3";
    optProtocol_Click(ProtocolTap);
    chkProviderMultiMessage_Click();

    main_.tapi.FillDeviceList(cboTapiDevice);
    // Only a serial modem is proposed: the simulated modem and the internet line must be picked.
    const int row = main_.tapi.FirstModemRow();
    if (row < 0) return;
    cboTapiDevice.select(row);
    cboTapiDevice_Click();
}

void frmSMSCEdit::ProviderAdd(int index) {
    EditorRecordIndex = index;
    std::string country, city;
    const auto result = main_.tapi.tapiGetLocationInfo(country, city);
    auto& log = main_.tapi.debugLog();
    if (result < 0) {
        log.AppendLog(main_.tapi.ErrorText(result) + " - TapiGetLocationInfo");
        country.clear();
        city.clear();
    } else {
        log.AppendLog("RequestID " + std::to_string(result) + " - TapiGetLocationInfo");
    }
    txtCountryCode.Text = Trimmed(BlankNuls(country));
    txtAreaCode.Text = Trimmed(BlankNuls(city));
    chkASCII.Enabled = true;
}

void frmSMSCEdit::ProviderEdit(int index) {
    EditorRecordIndex = index;
    const Provider& p = main_.Providers.at(static_cast<std::size_t>(index));
    txtProviderName.Text = p.ProviderName;
    txtPassword.Text = p.Password;
    EditorDevConfig = p.DevConfig;
    EditorDevConfigSize = static_cast<std::uint32_t>(p.DevConfig.size());
    // Read as a number. An empty field names no line (it is not row 0, the simulated modem),
    // and a row beyond the list (a modem was removed) leaves the proposed row; either reads its
    // block only if the user picks another.
    const double device = std::trunc(LeadingNumber(p.TapiDevice));
    if (!p.TapiDevice.empty() && device >= 0 && device < cboTapiDevice.ListCount()) {
        EditingExisting = true;
        cboTapiDevice.select(static_cast<int>(device));
        cboTapiDevice_Click();
    }
    txtCountryCode.Text = p.CountryCode;
    txtAreaCode.Text = p.AreaCode;
    txtNumber.Text = p.Number;
    txtProviderMaxChars.Text = p.MaxChars;
    chkProviderMultiMessage.Value = p.MultiMessage != 0;
    if (p.AllowASCII == "1") chkASCII.Value = true;
    if (p.Protocol >= 0 && p.Protocol < kProtocols) optProtocol_Click(p.Protocol);
    const int operation = cboUCPOperation.FindRow(p.UCPOperation);
    if (operation >= 0) cboUCPOperation.select(operation);
    txtMaxMessages.Text = p.MaxMessages;
    if (optProtocol[ProtocolTap].Value) chkASCII.Enabled = true;
    chkProviderMultiMessage_Click();
}

void frmSMSCEdit::cboTapiDevice_Click() {
    if (EditingExisting || cboTapiDevice.ListIndex < 0) return;
    ReadDevConfig(main_.tapi, static_cast<std::uint32_t>(cboTapiDevice.ListIndex), *this);
}

void frmSMSCEdit::cmdLineConfigDialog_Click() {
    EditDevConfig(main_.tapi, cboTapiDevice, ownerWindow, *this);
}

void frmSMSCEdit::Country_Click() {
    txtCountryCode.Text = CountryDialCode(Country.Text);
}

void frmSMSCEdit::optProtocol_Click(int index) {
    for (int i = 0; i < kProtocols; ++i)
        optProtocol[static_cast<std::size_t>(i)].Value = i == index;
    ApplyProtocolRules();
}

void frmSMSCEdit::ApplyProtocolRules() {
    // A tick in a disabled chkASCII keeps its value and is stored all the same.
    const bool ucp = optProtocol[ProtocolUcp].Value;
    cboUCPOperation.Enabled = ucp;
    Label7.Enabled = ucp;
    chkASCII.Enabled = optProtocol[ProtocolTap].Value;
}

void frmSMSCEdit::chkProviderMultiMessage_Click() {
    txtMaxMessages.Enabled = chkProviderMultiMessage.Value;
    Label5.Enabled = chkProviderMultiMessage.Value;
}

int frmSMSCEdit::SelectedProtocol() const {
    for (int i = 1; i < kProtocols; ++i)
        if (optProtocol[static_cast<std::size_t>(i)].Value) return i;
    return ProtocolTap;
}

void frmSMSCEdit::Refuse(int messageId, int flags, const char* control) {
    main_.ShowMessageBox(main_.LoadResString(messageId), flags);
    focusedControl = control;
}

bool frmSMSCEdit::CheckFields() {
    if (cboTapiDevice.Text.empty() ||
        cboTapiDevice.Text == main_.LoadResString(sid::NotAvailable)) {
        Refuse(sid::SelectModemToUse, MbInformation, "cboTapiDevice");
        return false;
    }
    if (txtProviderName.Text.empty()) {
        Refuse(sid::PleaseEnterProviderName, MbInformation, "txtProviderName");
        return false;
    }
    // Exact as to case, although the sort takes "alpha" and "Alpha" for equals.
    const auto& providers = main_.Providers;
    for (std::size_t i = 0; i < providers.size(); ++i) {
        if (static_cast<int>(i) == EditorRecordIndex ||
            providers[i].ProviderName != txtProviderName.Text)
            continue;
        Refuse(sid::ServiceCentreNameExists, MbExclamation, "txtProviderName");
        return false;
    }
    const struct {
        const TextBox& box;
        int message;
        const char* control;
    } required[] = {
        {txtCountryCode, sid::PleaseEnterCountryCode, "txtCountryCode"},
        {txtAreaCode, sid::PleaseEnterAreaCode, "txtAreaCode"},
        {txtNumber, sid::PleaseEnterProviderNumber, "txtNumber"},
    };
    for (const auto& field : required) {
        if (!field.box.Text.empty()) continue;
        Refuse(field.message, MbInformation, field.control);
        return false;
    }
    if (chkProviderMultiMessage.Value && txtMaxMessages.Text.empty()) {
        Refuse(sid::PleaseEnterMaxMessages, MbInformation, "txtMaxMessages");
        return false;
    }
    return CheckTyping();
}

bool frmSMSCEdit::CheckTyping() {
    const struct {
        const TextBox& box;
        int label;
        const char* control;
        bool number;
    } fields[] = {
        {txtProviderName, sid::LabelServiceCentreName, "txtProviderName", false},
        {txtPassword, sid::LabelLogonPassword, "txtPassword", false},
        {txtCountryCode, sid::TipCountryCode, "txtCountryCode", true},
        {txtAreaCode, sid::TipAreaCode, "txtAreaCode", true},
        {txtNumber, sid::LabelServiceCentreNumber, "txtNumber", true},
        {txtProviderMaxChars, sid::LabelMaximumMessageLength, "txtProviderMaxChars", true},
        {txtMaxMessages, sid::LabelMaximumNoOfMessages, "txtMaxMessages", true},
    };
    for (const auto& field : fields) {
        int message = 0;
        if (NotStorable.count(field.control))
            message = sid::CharactersCannotBeStored;
        else if (field.number && !DigitsAndPlus(field.box.Text))
            message = sid::PleaseEnterValid;  // pasted text passes no key filter
        if (message == 0) continue;
        main_.ShowMessageBox(main_.LoadResString(message) + " " + main_.LoadResString(field.label),
                             MbInformation);
        focusedControl = field.control;
        return false;
    }
    return true;
}

void frmSMSCEdit::cmdProviderItemOk_Click() {
    if (!CheckFields()) return;
    BusyCursor busy(main_);
    auto& providers = main_.Providers;
    const auto at = static_cast<std::size_t>(std::max(EditorRecordIndex, 0));
    if (at >= providers.size()) providers.resize(at + 1);
    Provider& p = providers[at];
    p.ProviderName = txtProviderName.Text;
    p.Password = txtPassword.Text;
    p.TapiDevice = std::to_string(cboTapiDevice.ListIndex);
    p.CountryCode = txtCountryCode.Text;
    p.AreaCode = txtAreaCode.Text;
    p.Number = txtNumber.Text;
    p.MaxChars = txtProviderMaxChars.Text;
    p.MultiMessage = chkProviderMultiMessage.Value ? 1 : 0;
    p.Protocol = SelectedProtocol();
    p.UCPOperation = cboUCPOperation.Text;
    p.MaxMessages = txtMaxMessages.Text;
    p.AllowASCII = chkASCII.Value ? "1" : "0";
    p.DevConfig = EditorDevConfig;
    // The empty record of a missing smsc.dat gives way to the first real centre.
    std::erase_if(providers, [](const Provider& centre) { return centre.ProviderName.empty(); });
    SortProviders(providers);

    auto& services = main_.Services;
    services.Clear();
    for (const auto& centre : providers) services.AddItem(centre.ProviderName);
    services.select(services.FindRow(txtProviderName.Text));
    // A default that names no centre gives way too, so the panel comes back to this one.
    const std::string defaultName = main_.DefaultCentre();
    const bool defaultListed =
        std::any_of(providers.begin(), providers.end(),
                    [&](const Provider& centre) { return centre.ProviderName == defaultName; });
    if (chkDefaultSMSC.Value || !defaultListed)
        main_.settings().Save(key::DefaultCentre, txtProviderName.Text);
    if (chkDefModem.Value) DefModem(providers, cboTapiDevice.ListIndex);
    unloaded = true;
}

}  // namespace parlane
