// The viewer: Send Again takes the file apart as SaveToOutbox put it together.
#include "archive/frm_open.h"

#include "archive/wordwrap.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

constexpr std::size_t kNotFound = std::string::npos;

}  // namespace

MessageFileParts TakeMessageFileApart(const std::string& file, const std::string& messageLabel) {
    MessageFileParts parts;

    // The centre: behind "Using: ", TAB, up to the blank before the first "SMSC".
    parts.centre = file;
    if (const auto at = parts.centre.find("Using:"); at != kNotFound)
        parts.centre = parts.centre.substr(std::min(at + 8, parts.centre.size()));
    if (const auto at = parts.centre.find("SMSC"); at != kNotFound)
        parts.centre = parts.centre.substr(0, at == 0 ? 0 : at - 1);

    parts.recipient = file;
    if (const auto at = parts.recipient.find("Sent To:"); at != kNotFound)
        parts.recipient = parts.recipient.substr(at);
    if (const auto at = parts.recipient.find('\t'); at != kNotFound)
        parts.recipient = parts.recipient.substr(at + 1);
    if (const auto at = parts.recipient.find('\r'); at != kNotFound)
        parts.recipient = parts.recipient.substr(0, at);

    // The text: behind the label, its blank and two line ends, less the closing CR LF.
    parts.text = file;
    if (const auto at = parts.text.find(messageLabel); at != kNotFound)
        parts.text = parts.text.substr(std::min(at + messageLabel.size() + 5, parts.text.size()));
    parts.text.resize(parts.text.size() < 2 ? 0 : parts.text.size() - 2);
    return parts;
}

void frmOpen::cmdResend_Click() {
    const auto parts = TakeMessageFileApart(txtMessage, main_.LoadResString(sid::MessageLabel));
    const bool typedNumber = !parts.recipient.empty() && parts.recipient[0] == '+';
    if (typedNumber) {
        const auto piece = [&](std::size_t from, std::size_t length) {
            return from < parts.recipient.size() ? parts.recipient.substr(from, length)
                                                 : std::string();
        };
        main_.txtCountryCode.Text = piece(1, 2);
        main_.txtAreaCode.Text = piece(3, 4);
        main_.txtNumber.Text = piece(7, std::string::npos);
    } else {
        const int found = main_.FindName(parts.recipient);
        if (found < 0) {
            main_.ShowMessageBox(main_.LoadResString(sid::NameNotInDirectory), MbInformation);
            return;
        }
        const auto& entry = main_.Directory[static_cast<std::size_t>(found)];
        main_.txtCountryCode.Text = entry.CountryCode;
        main_.txtAreaCode.Text = entry.AreaCode;
        main_.txtNumber.Text = entry.Number;
    }
    main_.txtMessage.Text = parts.text;
    main_.Services.Text = parts.centre;
    main_.Services_Change();
    main_.RemoteQueue();
    main_.changed();
    // A typed number has been taken apart at fixed places; the viewer has done its work.
    if (typedNumber) unloaded = true;
}

void frmOpen::cmdPrint_Click(Printer& printer) {
    printer.SetFont("Times New Roman");
    const bool selection = SelLength > 0 && SelStart < txtMessage.size();
    const std::string text = selection ? txtMessage.substr(SelStart, SelLength) : txtMessage;
    auto& platform = main_.platform();
    PrintWrapped(printer, " ", text,
                 {platform.formats.shortDate(platform.loop.wallClock()),
                  main_.LoadResString(sid::PageWord)});
}

}  // namespace parlane
