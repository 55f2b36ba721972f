#pragma once
// A message centre that takes UCP operations 01, 30 and 51 over the dial-up line and answers
// each frame with a positive or negative result.

#include <string>

#include "line/sim/simulated_base_centre.h"

namespace parlane {

struct UcpCentreOptions {
    bool lowerCase = false;       // the whole answer in lower case, checksum digits too
    int answerPieces = 1;         // each answer goes out in this many chunks
    bool answerBadFrames = true;  // else a bad frame gets no answer at all
    RefusalRule refuse;
    std::string password;  // empty: the AC field is not checked
};

class SimulatedUcpCentre : public SimulatedCentreBase {
  public:
    explicit SimulatedUcpCentre(UcpCentreOptions options = {}) : options_(std::move(options)) {}
    void received(std::string_view bytes) override;

    // The centre's view of a message in the GSM default alphabet, as cp1252 ('?' where it has
    // none).
    static std::string GsmHexToText(const std::string& hex, bool* ok);

  private:
    void frame(const std::string& inner);
    void answer(const std::string& trn, const std::string& ot, const std::string& result);
    // A frame the centre cannot take, as opposed to a message it will not take.
    void badFrame(const std::string& trn, const std::string& ot, const char* code, const char* why);
    void refuse(const std::string& trn, const std::string& ot, const char* code, const char* why);

    UcpCentreOptions options_;
    std::string buffer_;
    int messages_ = 0;
};

}  // namespace parlane
