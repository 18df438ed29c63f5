// A small form in a real window, worked by the events that a mouse and a keyboard bring, and a
// record of what happened.
#pragma once

#include "frontends/qt/FormWindow.h"
#include "frontends/qt/QtWorld.h"
#include "widgets/Gestures.h"

#include <QApplication>
#include <QTest>
#include <QWindow>

#include <memory>
#include <string>
#include <utility>

namespace vorandine::qt_test {

// Controls stand side by side, 1000 twips apart, in the order in which they are added.
struct TestForm {
    widgets::Form form;
    widgets::TextBox first;
    widgets::TextBox second;
    widgets::CommandButton button;
    widgets::ListBox list;
    std::string log;

    TestForm() {
        form.place({0, 0, 20000, 1000});
        add(first, "Txt_Premier");
        add(second, "Txt_Second");
        add(button, "Cmd_Valider");
        add(list, "Lst_Lignes");
        button.Click = [this] { log += "click "; };
        list.Click = [this] { log += "line" + std::to_string(list.ListIndex()) + " "; };
        for (const char* const line : {"a", "b", "c", "d"})
            list.AddItem(line);
        form.focusFirst();
    }

    void add(widgets::Control& control, const std::string& name) {
        control.identify(name);
        control.TabIndex(static_cast<int>(form.children().size()));
        control.place({1000 * control.TabIndex(), 0, 900, 300});
        form.add(control);
    }
    // The name of the control that has the focus, "" if none.
    [[nodiscard]] std::string focus() const {
        return form.focus() != nullptr ? form.focus()->Name() : std::string();
    }
    // What happened since the last call.
    std::string taken() { return std::exchange(log, {}); }
};

struct Desk : TestForm {
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
    void press(const widgets::Control& control) const {
        press(control, native(control).rect().center());
    }
    void press(const widgets::Control& control, const QPoint& at) const {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                          native(control).mapTo(window.get(), at));
    }
};

} // namespace vorandine::qt_test
