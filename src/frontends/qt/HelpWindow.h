// The help beside the forms: a window that shows pages compiled into the program. It stands for
// itself: nothing waits for it, and no program is kept alive by it.
#pragma once

#include "widgets/World.h"

#include <QImage>
#include <QTextBrowser>
#include <QUrl>

#include <functional>
#include <map>

namespace vorandine::qt {

// Needs a QApplication. Keys: those of a text browser, Escape to close, Ctrl+plus, Ctrl+minus and
// Ctrl+0 for its size.
class HelpWindow : public QTextBrowser {
  public:
    // `zoom` as the forms': 1 shows text in the platform's size and pictures pixel by pixel.
    explicit HelpWindow(double zoom);

    // Brings the window to the front. A page that is shown already stays where it is read; any
    // other one, and one that had been closed, is shown from its beginning. Throws
    // Error(HelpMissing), with nothing changed, if there is no such page.
    void open(const widgets::HelpPage& help);

    [[nodiscard]] double zoom() const noexcept { return zoom_; }
    // Held between 0.5 and 5.
    void setZoom(double zoom);

  protected:
    // Pictures are shown no wider than the window.
    QVariant loadResource(int type, const QUrl& name) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    double zoom_;
    int fittedWidth_ = 0;             // that pictures were last made to fit in
    std::map<QUrl, QImage> pictures_; // of the page, in their own size

    void layOut();
    void colour();
    [[nodiscard]] int room() const;
    [[nodiscard]] QImage fitted(const QImage& picture) const;
    // Runs what lays the page out anew; the line that stood at the top stands there again.
    void keepPlace(const std::function<void()>& work);
};

} // namespace vorandine::qt
