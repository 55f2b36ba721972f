#include "archive/message_summary.h"

#include <string_view>

namespace parlane {
namespace {

// Every field is searched from the start of the whole text: the header stands before the
// message text, so the first occurrence of a label is the header's even when the text repeats it.
std::string_view From(std::string_view text, std::string_view label) {
    const auto at = text.find(label);
    return at == std::string_view::npos ? text : text.substr(at);
}

std::string_view UpToCr(std::string_view text) {
    const auto cr = text.find('\r');
    return cr == std::string_view::npos ? text : text.substr(0, cr);
}

// Label, blank, TAB, value, CR. The TAB is searched for, so a missing blank does no harm.
std::string_view TabField(std::string_view text, std::string_view label) {
    text = From(text, label);
    if (const auto tab = text.find('\t'); tab != std::string_view::npos)
        text.remove_prefix(tab + 1);
    return UpToCr(text);
}

// The status value is taken at a fixed 9 characters behind the label's start, as the list
// always read it; the TAB is not looked for.
std::string_view StatusField(std::string_view text) {
    constexpr std::string_view kLabel = "Status:";
    constexpr std::size_t kSkip = kLabel.size() + 2;  // blank and TAB
    if (const auto at = text.find(kLabel); at != std::string_view::npos)
        text = at + kSkip <= text.size() ? text.substr(at + kSkip) : std::string_view();
    return UpToCr(text);
}

}  // namespace

MessageSummary ReadMessageSummary(const std::string& text, const std::string& fileName,
                                  const RegionalFormats& formats) {
    const std::string_view all = text;
    const std::string dateText(TabField(all, "Date:"));
    const std::string_view timeText = TabField(all, "Time:");

    MessageSummary s;
    // Files written under other regional settings keep their own date text.
    const auto date = formats.parseLongDate(dateText);
    s.dateColumn = date ? formats.shortDate(*date) : dateText;
    s.dateColumn += ' ';
    s.dateColumn += timeText;
    s.recipient = TabField(all, "Sent To:");
    s.status = StatusField(all);
    s.sortKey = fileName.substr(0, 13);
    return s;
}

}  // namespace parlane
