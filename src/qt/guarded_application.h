#pragma once
// The program's QApplication: every event a handler runs for passes through notify(), so an
// exception a handler did not expect is caught there instead of ending the process. The fault
// goes to `onFault`, which saves what is pending and tells the user.

#include <QApplication>
#include <functional>
#include <string>

namespace parlane {

class GuardedApplication : public QApplication {
  public:
    GuardedApplication(int& argc, char** argv) : QApplication(argc, argv) {}
    bool notify(QObject* receiver, QEvent* event) override;

    std::function<void(const std::string& what)> onFault;

  private:
    void fault(const std::string& what);
    bool inFault_ = false;
};

// A critical box titled `title`; on the offscreen platform, a line on standard error instead.
void ShowCriticalBox(QWidget* owner, const std::string& title, const std::string& text);

}  // namespace parlane
