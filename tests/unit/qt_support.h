// A small form in a real window, worked by the events that a mouse and a keyboard bring.
#pragma once

#include "frontends/qt/FormWindow.h"
#include "frontends/qt/QtWorld.h"
#include "unit/gestures_support.h"

#include <QApplication>
#include <QTest>
#include <QWindow>

#include <memory>
#include <string>

namespace vorandine::qt_test {

class Desk : public gestures_test::TestForm {
  public:
    qt::QtWorld world;
    std::unique_ptr<qt::FormWindow> window;

    // Call it when all controls stand on the form.
    void show() {
        window = std::make_unique<qt::FormWindow>(form, world);
        window->setZoom(1.0);
        window->show();
        window->activateWindow();
        QCoreApplication::processEvents();
    }

    [[nodiscard]] QWidget& native(const widgets::Control& control) const {
        return *window->widgetFor(control);
    }

    void key(int code, Qt::KeyboardModifiers with = Qt::NoModifier) const {
        QTest::keyClick(window->windowHandle(), static_cast<Qt::Key>(code), with);
    }
    void type(const QString& text) const {
        for (const QChar character : text)
            QTest::sendKeyEvent(QTest::Click, window->windowHandle(), Qt::Key_unknown, character,
                                Qt::NoModifier);
    }
    void press(const widgets::Control& control, Qt::MouseButton which = Qt::LeftButton) const {
        press(control, native(control).rect().center(), which);
    }
    void press(const widgets::Control& control, const QPoint& at,
               Qt::MouseButton which = Qt::LeftButton) const {
        QTest::mouseClick(window->windowHandle(), which, {},
                          native(control).mapTo(window.get(), at));
    }
};

} // namespace vorandine::qt_test
