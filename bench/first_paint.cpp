// Preloaded into a Qt program by bench/start-up: ends it as soon as its first window has been
// painted and has arrived on the screen, so that any program can be timed from start to picture
// without being made for it.
#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <cstdlib>

namespace {

class FirstPaint : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* const widget = qobject_cast<const QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow()) {
            qApp->removeEventFilter(this);
            // Back in the event loop, the whole window has been painted.
            QTimer::singleShot(0, this, [] {
                QGuiApplication::sync();
                std::_Exit(EXIT_SUCCESS);
            });
        }
        return false;
    }
};

void install() {
    qApp->installEventFilter(new FirstPaint(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(install)
