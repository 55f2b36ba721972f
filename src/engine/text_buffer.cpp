#include "engine/text_buffer.h"

#include <cctype>

#include "core/cp1252.h"

namespace parlane {
namespace {

std::string ToUpper(const std::string& text) {
    std::string out = text;
    for (auto& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

}  // namespace

void TextBuffer::assign(const std::string& text) {
    text_ = text;
    upper_ = ToUpper(text);
    lower_ = Cp1252LowerCase(text);
    for (auto& answers : answers_) answers.clear();
}

TextBuffer& TextBuffer::operator+=(const std::string& text) {
    text_ += text;
    upper_ += ToUpper(text);
    lower_ += Cp1252LowerCase(text);
    if (text_.size() > kLimit) {
        const std::size_t gone = text_.size() - kKeep;
        for (auto* view : {&text_, &upper_, &lower_}) view->erase(0, gone);
        for (auto& answers : answers_)
            for (auto& [pattern, answer] : answers)
                answer.scanned = answer.scanned > gone ? answer.scanned - gone : 0;
    }
    return *this;
}

const std::string& TextBuffer::view(Case mode) const {
    return mode == Case::Exact ? text_ : mode == Case::Upper ? upper_ : lower_;
}

bool TextBuffer::contains(const std::string& pattern, Case mode) const {
    const std::string& haystack = view(mode);
    auto& answer = answers_[static_cast<int>(mode)][pattern];
    if (answer.found) return true;
    if (answer.scanned < haystack.size() || (answer.scanned == 0 && pattern.empty())) {
        // Only the new text, and the tail of the old that a match could start in, is searched.
        const std::size_t from =
            answer.scanned >= pattern.size() ? answer.scanned - pattern.size() + 1 : 0;
        answer.found = haystack.find(pattern, from) != std::string::npos;
        answer.scanned = haystack.size();
    }
    return answer.found;
}

}  // namespace parlane
