#pragma once
// TIM's videotex-style message service: a main menu, a service page, a form of seven fields and a
// result page. "u" steps back one page, "q" leaves.

#include <string>

#include "line/sim/simulated_base_centre.h"

namespace parlane {

class SimulatedTimCentre : public SimulatedCentreBase {
  public:
    // The heading of the first screen; older gateways show a bare screen tag instead of "pTIM".
    enum class Heading { PTim, CMenu, CScr, CServizio };
    explicit SimulatedTimCentre(Heading heading = Heading::PTim, RefusalRule refuse = {})
        : heading_(heading), refuse_(refuse) {}
    void received(std::string_view bytes) override;

  private:
    enum class Page { Main, Service, Form, Result, Summary };
    void greet() override;
    void key(char c);
    void formLine(const std::string& typed);
    void showForm();
    void submit();
    void leave();

    Heading heading_;
    RefusalRule refuse_;
    Page page_ = Page::Main;
    int field_ = 0;
    std::string recipient_;
    std::string text_;
    int messages_ = 0;
};

}  // namespace parlane
