#pragma once
// Menu centres that ask for a number, then for the text, and confirm: Vodafone's in English and
// Libertel's in Dutch. The centre speaks first and shows its number prompt again by itself after
// each result; a bare CR right after a result ends the call.

#include <string>

#include "line/sim/simulated_base_centre.h"

namespace parlane {

struct NumberTextScreens {
    std::string welcome;
    std::string numberPrompt;
    std::string textPrompt;
    std::string accepted;
    std::string refused;
    std::string badNumber;
    std::string goodbye;
};

struct VodaCentreOptions {
    bool mixedCase = false;  // "Enter number:" rather than "ENTER NUMBER:"
    RefusalRule refuse;
};

class SimulatedVodaCentre : public SimulatedCentreBase {
  public:
    explicit SimulatedVodaCentre(VodaCentreOptions options = {});
    void received(std::string_view bytes) override;

  protected:
    SimulatedVodaCentre(NumberTextScreens screens, RefusalRule refuse)
        : screens_(std::move(screens)), refuse_(refuse) {}

  private:
    enum class State { Number, Text, AfterResult };
    void greet() override;
    void line(const std::string& typed);
    void number(const std::string& typed);

    NumberTextScreens screens_;
    RefusalRule refuse_;
    State state_ = State::Number;
    std::string recipient_;
    int messages_ = 0;
};

class SimulatedLibertelCentre : public SimulatedVodaCentre {
  public:
    explicit SimulatedLibertelCentre(RefusalRule refuse = {});
};

}  // namespace parlane
