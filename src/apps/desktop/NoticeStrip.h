// The strip of notices at the head of a caregiver's window. It pushes the form down and covers
// nothing; the focus stays in the form until the user comes over by F6.
#pragma once

#include "apps/host/Notices.h"
#include "frontends/qt/FormWindow.h"

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QPushButton;
class QVBoxLayout;

namespace vorandine::desktop {

// At most two notices show, the worst first and of equals the latest; a button shows the others. A
// screen reader finds each as a notification; only a failure interrupts what it is reading.
//
// F6 goes from the form to the first notice, and on; Tab too, once there. Behind the last one, and
// by Escape, the form has the focus back. Enter presses the button of the notice.
class NoticeStrip : public QWidget {
    Q_OBJECT
  public:
    // Becomes the head of `window`, which owns it.
    explicit NoticeStrip(qt::FormWindow& window);

    // Shows the notice, in the place of an earlier one of its name. `press` is what its button
    // does; it must not withdraw the notice before it is back in the event loop.
    void tell(const host::Notice& notice, std::function<void()> press = {});
    // Nothing happens if there is no notice of that name.
    void withdraw(const std::string& name);

  protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    class Card;

    qt::FormWindow& window_;
    QVBoxLayout* layout_;
    QPushButton* more_;
    std::vector<Card*> cards_; // as shown, from the top
    bool all_ = false;         // the user wants to see more than two

    [[nodiscard]] std::vector<Card*>::iterator find(const std::string& name);
    void arrange();
    [[nodiscard]] std::vector<QWidget*> stops() const;
    void step(bool forward);
};

} // namespace vorandine::desktop
