#pragma once
// Orange's paging menu: single-key choices at the menu, typed lines for the number and the text.

#include <string>

#include "line/sim/simulated_base_centre.h"

namespace parlane {

class SimulatedOrangeCentre : public SimulatedCentreBase {
  public:
    explicit SimulatedOrangeCentre(RefusalRule refuse = {}) : refuse_(refuse) {}
    void received(std::string_view bytes) override;

  private:
    enum class State { Menu, Number, Text };
    void greet() override;
    void menuKey(char c);
    void line(const std::string& typed);
    void goodbye();

    RefusalRule refuse_;
    State state_ = State::Menu;
    std::string recipient_;
    int messages_ = 0;
};

}  // namespace parlane
