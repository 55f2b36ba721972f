#pragma once
// The text a dialogue has received. Dialogues that append ask the same questions of a growing
// buffer on every chunk; answers are kept and extended over the new text only, so a long call
// costs in proportion to its length, not to its length squared.
//
// Memory is bounded whatever a centre sends: past kLimit bytes only the last kKeep are kept. Every
// prompt and frame the dialogues wait for is far shorter, and an answer once found stays found,
// as it would in the whole text.

#include <string>
#include <unordered_map>

namespace parlane {

class TextBuffer {
  public:
    enum class Case { Exact, Upper, Lower };
    static constexpr std::size_t kLimit = 64 * 1024;
    static constexpr std::size_t kKeep = 16 * 1024;

    TextBuffer() = default;
    TextBuffer(const std::string& text) { assign(text); }  // NOLINT: used like a string
    TextBuffer& operator=(const std::string& text) {
        assign(text);
        return *this;
    }
    TextBuffer& operator+=(const std::string& text);
    void clear() { assign({}); }
    bool empty() const { return text_.empty(); }
    std::size_t size() const { return text_.size(); }
    const std::string& str() const { return text_; }
    operator const std::string&() const { return text_; }  // NOLINT

    // Whether the text (in the given case) contains `pattern` (which is given in that case).
    bool contains(const std::string& pattern, Case mode = Case::Exact) const;

  private:
    void assign(const std::string& text);
    const std::string& view(Case mode) const;

    struct Answer {
        bool found = false;
        std::size_t scanned = 0;  // text length the answer holds for
    };
    std::string text_;
    mutable std::string upper_, lower_;
    mutable std::unordered_map<std::string, Answer> answers_[3];
};

}  // namespace parlane
