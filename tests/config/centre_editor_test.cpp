// The centre editor and the main window's new, edit and delete commands.
#include <gtest/gtest.h>

#include <functional>

#include "config/demo_centres.h"
#include "config/frm_first_centre.h"
#include "config/frm_smsc_edit.h"
#include "core/cp1252.h"
#include "core/file_io.h"
#include "store/queue_journal.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;

std::vector<std::uint8_t> Bytes(std::size_t n) {
    std::vector<std::uint8_t> b(n);
    for (std::size_t i = 0; i < n; ++i) b[i] = static_cast<std::uint8_t>(i * 5 + 3);
    return b;
}

struct CentreEditor : ::testing::Test {
    testing::TestPlatform p;
    frmMain* f = nullptr;
    // What the shown editor does; the window's model opens it through showForm.
    std::function<void(frmSMSCEdit&)> user;
    std::vector<std::string> forms;

    void load(const std::vector<Provider>& centres) {
        p.writeProviders(centres);
        f = &p.load();
        f->showForm = [this](const std::string& form) {
            forms.push_back(form);
            if (form == "frmSMSCEdit" && f->SMSCEditForm && user) user(*f->SMSCEditForm);
        };
    }
    std::vector<Provider> fileCentres() const {
        return ParseProviderFile(ReadWholeFile(p.home / "smsc.dat").value_or("")).records;
    }
    std::vector<std::string> names() const {
        std::vector<std::string> n;
        for (const auto& c : f->Providers) n.push_back(c.ProviderName);
        return n;
    }
    const std::string& lastPrompt() const { return p.dialogues.shown.back().prompt; }
};

// A new centre's fields, all filled.
void Fill(frmSMSCEdit& e, const std::string& name) {
    e.txtProviderName.Text = name;
    e.txtCountryCode.Text = "31";
    e.txtAreaCode.Text = "6";
    e.txtNumber.Text = "5551234";
}

TEST_F(CentreEditor, SaveChecksInOrderAndPutsTheFocusBack) {
    p.line.deviceNames = {"Simulated modem", ""};
    load({MakeProvider("Beta")});
    frmSMSCEdit e(*f);
    e.Form_Load();
    e.ProviderAdd(1);
    const struct {
        std::function<void()> change;
        const char* message;
        int flags;
        const char* focus;
    } steps[] = {
        {[&] { e.cboTapiDevice.select(1); }, "Select the Modem to Use", MbInformation,
         "cboTapiDevice"},
        {[&] { e.cboTapiDevice.select(0); }, "Please Enter the Service Providers Name",
         MbInformation, "txtProviderName"},
        {[&] { e.txtProviderName.Text = "Beta"; },
         "This Service Centre name already exists. Please choose a new name", MbExclamation,
         "txtProviderName"},
        // Another case is another name; the location gave 44 but no area code.
        {[&] { e.txtProviderName.Text = "BETA"; }, "Please Enter An Area Code", MbInformation,
         "txtAreaCode"},
        {[&] { e.txtCountryCode.Text.clear(); }, "Please Enter A Country Code", MbInformation,
         "txtCountryCode"},
        {[&] { e.txtCountryCode.Text = "44", e.txtAreaCode.Text = "07"; },
         "Please Enter the Service Providers Telephone Number", MbInformation, "txtNumber"},
        {[&] { e.txtNumber.Text = "12", e.txtMaxMessages.Text.clear(); }, "", 0, ""},
        {[&] { e.chkProviderMultiMessage.Value = true; },
         "Please Enter The Maximum Number Of Messages Your Service Provider Will Accept",
         MbInformation, "txtMaxMessages"},
        // Past the key filters: pasted letters, characters the code page lacks.
        {[&] { e.txtMaxMessages.Text = "3", e.txtNumber.Text = "0800 FLOWERS"; },
         "Please Enter A Valid Service Centre Number", MbInformation, "txtNumber"},
        {[&] { e.txtNumber.Text = "+4420", e.NotStorable.insert("txtPassword"); },
         "Only Western European letters and signs can be stored. Please change the characters "
         "that are not in Logon Password",
         MbInformation, "txtPassword"},
    };
    for (const auto& step : steps) {
        step.change();
        const auto shown = p.dialogues.shown.size();
        e.focusedControl.clear();
        e.cmdProviderItemOk_Click();
        if (!*step.message) {
            // Without the tick an empty maximum passes: undo the save for the next steps.
            EXPECT_TRUE(e.unloaded);
            EXPECT_EQ(f->Providers.size(), 2u);
            e.unloaded = false;
            f->Providers = {MakeProvider("Beta")};
            continue;
        }
        ASSERT_EQ(p.dialogues.shown.size(), shown + 1) << step.message;
        EXPECT_EQ(lastPrompt(), step.message);
        EXPECT_EQ(p.dialogues.shown.back().flags, step.flags) << step.message;
        EXPECT_EQ(e.focusedControl, step.focus) << step.message;
        EXPECT_FALSE(e.unloaded);
    }
    EXPECT_EQ(f->Providers.size(), 1u);
}

TEST_F(CentreEditor, ANewCentreIsWrittenSortedAndSelected) {
    p.line.deviceNames = {"Simulated modem", "Acme 56k"};
    p.line.devConfig = Bytes(2000);  // more than the first pass's area
    p.line.locationCity = std::string("20\0 ", 4);
    load({MakeProvider("Beta"), MakeProvider("Gamma")});
    user = [&](frmSMSCEdit& e) {
        // The first serial modem; another row reads that device's block.
        EXPECT_EQ(e.cboTapiDevice.ListIndex, 0);
        e.cboTapiDevice.select(1);
        e.cboTapiDevice_Click();
        EXPECT_EQ(p.line.log.back(), "get dev config 1 2024");
        EXPECT_EQ(e.EditorDevConfig, Bytes(2000));
        EXPECT_EQ(e.txtCountryCode.Text, "44");
        EXPECT_EQ(e.txtAreaCode.Text, "20");
        Fill(e, "alpha");
        e.chkASCII.Value = true;
        e.optProtocol_Click(ProtocolUcp);  // the tick stays, and is stored
        e.cboUCPOperation.select(2);
        e.chkProviderMultiMessage.Value = true;
        e.chkProviderMultiMessage_Click();
        e.chkDefaultSMSC.Value = true;
        e.chkDefModem.Value = true;
        e.cmdProviderItemOk_Click();
    };
    f->mnuNewSMSC_Click();
    EXPECT_EQ(forms, std::vector<std::string>{"frmSMSCEdit"});
    EXPECT_EQ(names(), (std::vector<std::string>{"alpha", "Beta", "Gamma"}));
    Provider expected{"alpha",     "", "1", "31",        "6", "5551234", "160",
                      ProtocolUcp, 1,  "1", Bytes(2000), "3", "51"};
    EXPECT_EQ(f->Providers[0], expected);
    EXPECT_EQ(f->Providers[2].TapiDevice, "1");  // the modem of all centres now
    EXPECT_EQ(f->Providers[2].DevConfig, std::vector<std::uint8_t>{});
    EXPECT_EQ(f->Services.rows, names());
    EXPECT_EQ(f->Services.ListIndex, 0);
    EXPECT_EQ(f->settings().GetSetting("SMSC", "Default", ""), "alpha");
    EXPECT_EQ(fileCentres(), f->Providers);
}

TEST_F(CentreEditor, CancelStoresNothingButTheFileIsRewritten) {
    auto beta = MakeProvider("Beta");
    beta.DevConfig = {0xAA, 0xBB};
    load({beta});
    std::filesystem::remove(p.home / "smsc.dat");
    user = [&](frmSMSCEdit& e) {
        Fill(e, "Zeta");
        e.cmdProviderItemCancel_Click();
    };
    f->mnuNewSMSC_Click();
    f->mnuEditSMSC_Click();
    EXPECT_EQ(f->Providers, std::vector<Provider>{beta});
    EXPECT_EQ(fileCentres(), f->Providers);
    EXPECT_EQ(f->settings().GetSetting("SMSC", "Default", "none"), "none");
}

TEST_F(CentreEditor, TheControlsFollowTheProtocolAndTheTick) {
    load({MakeProvider("Beta")});
    frmSMSCEdit e(*f);
    e.Form_Load();
    EXPECT_EQ(e.cboUCPOperation.Text, "01");
    EXPECT_EQ(e.SelectedProtocol(), ProtocolTap);
    for (int protocol = 0; protocol < frmSMSCEdit::kProtocols; ++protocol) {
        e.optProtocol_Click(protocol);
        EXPECT_EQ(e.SelectedProtocol(), protocol);
        EXPECT_EQ(e.cboUCPOperation.Enabled, protocol == ProtocolUcp) << protocol;
        EXPECT_EQ(e.chkASCII.Enabled, protocol == ProtocolTap) << protocol;
    }
    for (bool tick : {true, false}) {
        e.chkProviderMultiMessage.Value = tick;
        e.chkProviderMultiMessage_Click();
        EXPECT_EQ(e.txtMaxMessages.Enabled, tick);
    }
    e.Country.select(e.Country.FindRow("Italy"));
    e.Country_Click();
    EXPECT_EQ(e.txtCountryCode.Text, "39");
    EXPECT_EQ(e.cboUCPOperation_KeyPress('5'), 0);
    e.txtMaxMessages.Text = "12";
    e.txtMaxMessages_Change();
    EXPECT_EQ(e.txtMaxMessages.SelLength, 2);
}

TEST_F(CentreEditor, EditKeepsTheStoredDeviceAndBlock) {
    p.line.deviceNames = {"Simulated modem", "Acme modem"};
    p.line.devConfig = Bytes(30);
    auto beta = MakeProvider("Beta", ProtocolOrange);
    beta.DevConfig = {1, 2, 3};
    beta.AllowASCII = "1";
    auto gone = MakeProvider("Gone");
    gone.TapiDevice = "7";  // a modem that was removed
    gone.DevConfig = {9};
    load({beta, gone});
    frmSMSCEdit e(*f);
    e.Form_Load();
    e.ProviderEdit(0);
    EXPECT_EQ(e.cboTapiDevice.ListIndex, 0);
    EXPECT_EQ(e.EditorDevConfig, (std::vector<std::uint8_t>{1, 2, 3}));
    EXPECT_TRUE(e.optProtocol[ProtocolOrange].Value);
    EXPECT_TRUE(e.chkASCII.Value);
    EXPECT_FALSE(e.chkASCII.Enabled);
    e.cboTapiDevice.select(1);
    e.cboTapiDevice_Click();  // the stored block stays for the rest of the edit
    EXPECT_EQ(e.EditorDevConfig, (std::vector<std::uint8_t>{1, 2, 3}));

    frmSMSCEdit g(*f);
    g.Form_Load();
    g.ProviderEdit(1);
    EXPECT_EQ(g.cboTapiDevice.ListIndex, 0);  // the default row
    EXPECT_EQ(g.EditorDevConfig, std::vector<std::uint8_t>{9});
    g.cboTapiDevice.select(1);
    g.cboTapiDevice_Click();
    EXPECT_EQ(g.EditorDevConfig, Bytes(30));
    g.cmdProviderItemOk_Click();
    EXPECT_EQ(f->Providers[1].TapiDevice, "1");
    EXPECT_EQ(f->Providers[1].DevConfig, Bytes(30));
}

TEST_F(CentreEditor, EditShowsTheFirstTimeNoticeOnceAndTicksTheDefault) {
    load({MakeProvider("Alpha"), MakeProvider("Beta")});
    f->settings().SaveSetting("SMSC", "Default", "Beta");
    std::vector<bool> ticked;
    user = [&](frmSMSCEdit& e) { ticked.push_back(e.chkDefaultSMSC.Value); };
    for (const char* name : {"Beta", "Alpha"}) {
        f->Services.select(f->Services.FindRow(name));
        f->mnuEditSMSC_Click();
    }
    EXPECT_EQ(ticked, (std::vector<bool>{true, false}));
    ASSERT_EQ(p.dialogues.shown.size(), 1u);
    EXPECT_EQ(p.dialogues.shown[0].prompt.find("IMPORTANT MESSAGE FOR FIRST TIME USERS:\r\n\r\n"
                                               "Please do not alter"),
              0u);
    EXPECT_EQ(f->settings().GetSetting("Settings", "FirstEdit", ""), "1");
    f->Services.select(-1);
    f->mnuEditSMSC_Click();
    EXPECT_EQ(ticked.size(), 2u);
}

TEST_F(CentreEditor, DeleteAsksAndKeepsOne) {
    load({MakeProvider("Alpha"), MakeProvider("Beta"), MakeProvider("Gamma")});
    f->settings().SaveSetting("SMSC", "Default", "Gamma");
    f->Services.select(2);
    p.dialogues.answers = {AnswerNo, AnswerYes};
    f->mnuDeleteSMSC_Click();
    EXPECT_EQ(lastPrompt(), "Are you certain you want to delete Gamma");
    EXPECT_EQ(names().size(), 3u);
    f->mnuDeleteSMSC_Click();
    EXPECT_EQ(names(), (std::vector<std::string>{"Alpha", "Beta"}));
    EXPECT_EQ(f->Services.rows, names());
    EXPECT_EQ(f->Services.ListIndex, 0);
    EXPECT_EQ(fileCentres(), f->Providers);
    // The default names a centre that is gone; a fresh start falls back to row 0.
    EXPECT_EQ(f->DefaultCentre(), "Gamma");

    f->Providers.resize(1);
    f->Services.rows.resize(1);
    f->mnuDeleteSMSC_Click();
    EXPECT_EQ(lastPrompt(), "You must leave at least one service provider");
    EXPECT_EQ(fileCentres().size(), 2u);  // nothing rewritten for a refusal
}

TEST_F(CentreEditor, OddInputIsStoredExactly) {
    const std::string longName(300, 'N');
    load({MakeProvider("beta")});
    for (const std::string& name : {longName, std::string("Beta"), std::string("Caf\xE9 \x80")}) {
        user = [&](frmSMSCEdit& e) {
            Fill(e, name);
            e.txtPassword.Text = "p\xE4ss";
            e.cmdProviderItemOk_Click();
            EXPECT_TRUE(e.unloaded) << p.dialogues.shown.size();
        };
        f->mnuNewSMSC_Click();
    }
    ASSERT_EQ(fileCentres(), f->Providers);
    ASSERT_EQ(f->Providers.size(), 4u);
    EXPECT_EQ(Cp1252LowerCase(f->Providers[0].ProviderName), "beta");
    EXPECT_EQ(f->Providers[3].ProviderName, longName);
    EXPECT_EQ(f->Providers[3].Password, "p\xE4ss");
}

TEST_F(CentreEditor, NoChangesWhileARunHoldsTheCentres) {
    load({MakeProvider("Alpha"), MakeProvider("Beta")});
    f->Services.select(1);
    f->SendBuffer.push_back(QueuedMessage{});
    f->mnuNewSMSC_Click();
    f->mnuEditSMSC_Click();
    f->mnuDeleteSMSC_Click();
    EXPECT_TRUE(forms.empty());
    EXPECT_EQ(names().size(), 2u);
    ASSERT_EQ(p.dialogues.shown.size(), 3u);
    EXPECT_EQ(lastPrompt().find("The Service Centres cannot be changed"), 0u);
}

TEST_F(CentreEditor, AHomeWithNoCentreToDialIsOfferedOneOrTheDemonstrationCentres) {
    load({});  // a fresh home: one empty centre
    using Choice = frmFirstCentre::Choice;
    Choice answer = Choice::Later;
    f->showForm = [&](const std::string& form) {
        forms.push_back(form);
        if (form == "frmFirstCentre") {
            EXPECT_EQ(f->FirstCentreForm->cmdDemoCentres.Caption, "Add the &Demonstration Centres");
            f->FirstCentreForm->choice = answer;
        }
    };
    f->OfferFirstCentre();
    EXPECT_EQ(f->Providers.size(), 1u);  // nothing is added unasked
    answer = Choice::NewCentre;
    f->OfferFirstCentre();
    EXPECT_EQ(forms, (std::vector<std::string>{"frmFirstCentre", "frmFirstCentre", "frmSMSCEdit"}));
    answer = Choice::DemoCentres;
    f->OfferFirstCentre();
    ASSERT_EQ(f->Providers.size(), DemoCentres().size());
    EXPECT_TRUE(std::all_of(f->Providers.begin(), f->Providers.end(), IsUsableCentre));
    EXPECT_EQ(f->Services.Text, "Demo TAP Centre");
    EXPECT_EQ(fileCentres(), f->Providers);
    forms.clear();
    f->OfferFirstCentre();  // a centre to dial: no offer
    EXPECT_TRUE(forms.empty());
}

TEST_F(CentreEditor, AFaultSavesThePendingMessagesAndTheTables) {
    load({MakeProvider("Alpha")});
    testing::QueueTexts(*f, {"kept"});
    f->AddGroup("Team");
    for (const char* file : {"queue.journal", "smsc.dat", "phones.dat", "Data/group.dat"})
        std::filesystem::remove(p.home / file);
    f->SaveAfterFault();
    const auto journal = ParseQueueJournal(ReadWholeFile(p.home / "queue.journal").value_or(""));
    EXPECT_EQ(testing::Texts(journal.pending), std::vector<std::string>{"kept"});
    EXPECT_EQ(fileCentres(), f->Providers);
    EXPECT_TRUE(std::filesystem::exists(p.home / "phones.dat"));
    EXPECT_NE(ReadWholeFile(p.home / "Data" / "group.dat").value_or("").find("Team"),
              std::string::npos);
}

}  // namespace
}  // namespace parlane
