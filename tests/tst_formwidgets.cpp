#include "TestEnvironment.h"

#include "theme/ThemeKey.h"
#include "theme/ThemeManager.h"
#include "widgets/InflateButton.h"
#include "widgets/InflateLabel.h"
#include "widgets/MicroButton.h"
#include "widgets/MyButton.h"
#include "widgets/MyCheckBox.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyComboInput.h"
#include "widgets/MyDialogOpener.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyHorizontalLine.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPlainTextEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyRadioButton.h"
#include "widgets/MySlider.h"
#include "widgets/TrovDialog.h"
#include "widgets/UltimateToolTip.h"

#include <QApplication>
#include <QClipboard>
#include <QGraphicsDropShadowEffect>
#include <QHelpEvent>
#include <QMenu>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QVBoxLayout>

#include <stdexcept>

namespace {

QPropertyAnimation* animationOf(QObject* object, const char* property)
{
    for (QPropertyAnimation* animation : object->findChildren<QPropertyAnimation*>()) {
        if (animation->targetObject() == object && animation->propertyName() == property)
            return animation;
    }
    return nullptr;
}

void sendEnter(QWidget* widget)
{
    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(widget, &enter);
}

void sendLeave(QWidget* widget)
{
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(widget, &leave);
}

// Stops an animation at a point of its way, as if the user interrupted it there.
void stopAt(QPropertyAnimation* animation, int milliseconds)
{
    animation->pause();
    animation->setCurrentTime(milliseconds);
}

QColor pixel(QWidget* widget, int x, int y)
{
    return QColor(widget->grab().toImage().pixel(x, y));
}

// A window holding one form, shown and active, so that focus and keys work.
struct Form {
    QWidget window;
    QVBoxLayout* layout;
    QPushButton* confirm;
    // Somewhere else to click, for leaving a field.
    QLineEdit* other;

    Form()
    {
        layout = new QVBoxLayout(&window);
        other = new QLineEdit(&window);
        layout->addWidget(other);
        confirm = new QPushButton(QStringLiteral("OK"), &window);
        layout->addWidget(confirm);
        window.resize(320, 240);
    }
    void show()
    {
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
    template <typename W> W* add(W* widget)
    {
        layout->insertWidget(0, widget);
        return widget;
    }
};

}

class TestFormWidgets : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Theme::installDefault();
        Theme::refreshCachedColors();
    }

    // What the user types, pastes and leaves behind in a number field.
    void lineEditTyping_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<int>("digits");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("hint");
        QTest::addColumn<QString>("afterLeaving");

        QTest::newRow("in range") << 1 << 1.0 << 500.0 << 4 << "250" << "250" << true << "" << "250";
        QTest::newRow("above maximum") << 1 << 1.0 << 500.0 << 4 << "501" << "501" << false << "> 500" << "500";
        QTest::newRow("below minimum") << 1 << 10.0 << 500.0 << 4 << "5" << "5" << false << "< 10" << "10";
        QTest::newRow("leading zeros") << 1 << 0.0 << 500.0 << 4 << "007" << "007" << true << "" << "7";
        QTest::newRow("all zeros") << 1 << 0.0 << 500.0 << 4 << "000" << "000" << true << "" << "0";
        QTest::newRow("separators and plus") << 1 << 0.0 << 99999.0 << 6 << "+1,000" << "1000" << true << "" << "1000";
        QTest::newRow("too many digits") << 1 << 0.0 << 99999999.0 << 4 << "123456" << "1234" << true << "" << "1234";
        QTest::newRow("minus takes no digit") << 1 << -99999.0 << 99999.0 << 4 << "-12345" << "-1234" << true << ""
                                              << "-1234";
        QTest::newRow("minus alone") << 1 << -5.0 << 5.0 << 4 << "-" << "-" << false << "D.N.E." << "-5";
        QTest::newRow("letters are refused") << 1 << 0.0 << 500.0 << 4 << "4x2" << "42" << true << "" << "42";
        QTest::newRow("decimal padded") << 2 << 0.0 << 10.0 << 4 << "3" << "3" << true << "" << "3.0";
        QTest::newRow("decimal leading dot") << 2 << 0.0 << 10.0 << 4 << ".5" << ".5" << true << "" << "0.5";
        QTest::newRow("decimal below") << 2 << 0.0 << 10.0 << 4 << "-2.5" << "-2.5" << false << "< 0" << "0.0";
        QTest::newRow("decimal digits not cut") << 2 << 0.0 << 99999.0 << 4 << "12.3456" << "12.3456" << true << ""
                                                << "12.3";
        // Leaving takes the commas out of every field, text included.
        QTest::newRow("text takes anything") << 0 << 0.0 << 0.0 << 4 << "Hero, +1" << "Hero, +1" << true << ""
                                             << "Hero +1";
    }

    void lineEditTyping()
    {
        QFETCH(int, type);
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(int, digits);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(bool, valid);
        QFETCH(QString, hint);
        QFETCH(QString, afterLeaving);

        Form form;
        MyLineEdit* edit = form.add(new MyLineEdit);
        edit->setInputType(type);
        edit->setNumberField(minimum, maximum, digits, form.confirm);
        edit->setValue(QString());
        form.show();
        edit->setFocus();
        QTest::keyClicks(edit, typed);
        QCOMPARE(edit->text(), shown);
        QCOMPARE(edit->isValid(), valid);
        QCOMPARE(edit->hintText(), hint);
        // The confirm button follows the field's validity.
        QCOMPARE(form.confirm->isEnabled(), valid);

        QTest::mouseClick(form.other, Qt::LeftButton);
        QCOMPARE(edit->text(), afterLeaving);
        QVERIFY(edit->isValid());
        QVERIFY(form.confirm->isEnabled());
    }

    void lineEditPasteAndEmpty()
    {
        Form form;
        MyLineEdit* edit = form.add(new MyLineEdit);
        edit->setNumberField(1, 500, 4, form.confirm);
        edit->setValue(QStringLiteral("20"));
        form.show();
        edit->setFocus();

        // Pasting "1,000" into a wide enough field gives the plain number.
        edit->setRange(1, 99999);
        QApplication::clipboard()->setText(QStringLiteral("1,000"));
        edit->selectAll();
        QTest::keySequence(edit, QKeySequence::Paste);
        QCOMPARE(edit->text(), QStringLiteral("1000"));
        QVERIFY(edit->isValid());

        // Deleting all and leaving restores the minimum.
        edit->setRange(1, 500);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Backspace);
        QCOMPARE(edit->text(), QString());
        QVERIFY(!edit->isValid());
        QVERIFY(!form.confirm->isEnabled());
        QTest::mouseClick(form.other, Qt::LeftButton);
        QCOMPARE(edit->text(), QStringLiteral("1"));
        QVERIFY(form.confirm->isEnabled());
    }

    void lineEditInvalidFlashesAndCallsBack()
    {
        Form form;
        MyLineEdit* edit = form.add(new MyLineEdit);
        edit->setNumberField(1, 500, 4, form.confirm);
        QList<bool> heard;
        edit->setValidityListener([&heard](bool valid) { heard.append(valid); });
        edit->setValue(QStringLiteral("50"));
        form.show();
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("501"));
        QVERIFY(!heard.isEmpty());
        QCOMPARE(heard.last(), false);
        QPropertyAnimation* flash = animationOf(edit, "currState3");
        QVERIFY(flash);
        QCOMPARE(flash->endValue().toInt(), 300);
        QCOMPARE(flash->duration(), 150);
        // The line turns red: the valid look runs to 300.
        QCOMPARE(animationOf(edit, "currState2")->endValue().toInt(), 300);
        QTRY_COMPARE(edit->currState3(), 300);

        // A valid value again fades the hint out.
        QTest::keyClick(edit, Qt::Key_Backspace);
        QCOMPARE(edit->text(), QStringLiteral("50"));
        QCOMPARE(heard.last(), true);
        QCOMPARE(flash->endValue().toInt(), 0);
        QTRY_COMPARE(edit->currState3(), 0);
    }

    void lineEditProgrammaticValues()
    {
        MyLineEdit edit;
        edit.setNumberField(0, 100, 4);
        // setValue takes the text as it is and counts it valid.
        edit.setValue(QStringLiteral("900"));
        QCOMPARE(edit.text(), QStringLiteral("900"));
        QVERIFY(edit.isValid());

        // fromJson reads by input type and normalises.
        edit.fromJson(QJsonValue(250));
        QCOMPARE(edit.text(), QStringLiteral("100"));
        edit.fromJson(QJsonValue(QStringLiteral("not a number")), 42);
        QCOMPARE(edit.text(), QStringLiteral("42"));
        QCOMPARE(edit.toJson(), QJsonValue(42));

        edit.setInputType(MyLineEdit::Decimal);
        edit.setDecimals(2);
        edit.fromJson(QJsonValue(3.14159));
        QCOMPARE(edit.text(), QStringLiteral("3.14"));
        QCOMPARE(edit.toJson().toDouble(), 3.14);
        edit.fromJson(QJsonValue(), 0, 7.5);
        QCOMPARE(edit.text(), QStringLiteral("7.50"));

        edit.setInputType(MyLineEdit::Text);
        edit.fromJson(QJsonValue(QStringLiteral("Hero")));
        QCOMPARE(edit.toJson(), QJsonValue(QStringLiteral("Hero")));
        edit.fromJson(QJsonValue(5), 0, 0, QStringLiteral("fallback"));
        QCOMPARE(edit.text(), QStringLiteral("fallback"));
        // An empty text field asks its post-process callback.
        edit.setPostProcess([](const QString&) { return QStringLiteral("Unnamed"); });
        edit.setValue(QString());
        edit.normalise();
        QCOMPARE(edit.text(), QStringLiteral("Unnamed"));

        // A number field holds at most ten characters.
        edit.setInputType(MyLineEdit::Integer);
        QCOMPARE(edit.maxLength(), 10);
    }

    void lineEditExtension()
    {
        static int opened = 0;
        static bool removeNext = false;
        MyLineEditExtensionHandler handler;
        handler.display = [](const QJsonObject& data) { return QStringLiteral("Variable %1").arg(data.value(QStringLiteral("Id")).toInt()); };
        handler.open = [](QJsonObject& data, QWidget*, int inputType, bool& removed) {
            ++opened;
            if (removeNext) {
                removed = true;
                return false;
            }
            data.insert(QStringLiteral("Id"), 7);
            data.insert(QStringLiteral("InputType"), inputType);
            return true;
        };
        const int kind = MyLineEdit::registerExtensionHandler(handler);

        Form form;
        MyLineEdit* edit = form.add(new MyLineEdit);
        edit->setNumberField(0, 100, 4);
        edit->setExtendable(QStringLiteral("60"), kind, &form.window);
        edit->setValue(QStringLiteral("33"));
        form.show();

        edit->openExtendDialog();
        QCOMPARE(opened, 1);
        QVERIFY(edit->isExtended());
        QVERIFY(edit->isReadOnly());
        QCOMPARE(edit->cursor().shape(), Qt::PointingHandCursor);
        const QJsonValue stored = edit->toJson();
        QVERIFY(stored.isObject());
        QCOMPARE(stored.toObject().value(QStringLiteral("Id")).toInt(), 7);
        QCOMPARE(stored.toObject().value(QStringLiteral("InputType")).toInt(), int(MyLineEdit::Integer));

        // A click on the extended field opens the dialog again.
        QTest::mouseClick(edit, Qt::LeftButton, Qt::NoModifier, QPoint(40, 30));
        QCOMPARE(opened, 2);

        // The dialog may take the extension away: the field is a number again.
        removeNext = true;
        edit->openExtendDialog();
        QVERIFY(!edit->isExtended());
        QCOMPARE(edit->text(), QStringLiteral("33"));
        QCOMPARE(edit->toJson(), QJsonValue(33));
        removeNext = false;

        // A loaded object becomes the extension; without restore text the
        // default text comes back on clearing.
        MyLineEdit* loaded = form.add(new MyLineEdit);
        loaded->setExtendable(QStringLiteral("60"), kind, &form.window);
        loaded->fromJson(QJsonObject{{QStringLiteral("Id"), 3}});
        QVERIFY(loaded->isExtended());
        loaded->clearExtend();
        QCOMPARE(loaded->text(), QStringLiteral("60"));
        QVERIFY(!loaded->isReadOnly());

        // An object for a kind nobody registered is read as a plain value.
        MyLineEdit* unknown = form.add(new MyLineEdit);
        unknown->setExtendable(QStringLiteral("5"), kind + 100, &form.window);
        unknown->fromJson(QJsonObject{{QStringLiteral("Id"), 3}}, 9);
        QVERIFY(!unknown->isExtended());
        QCOMPARE(unknown->text(), QStringLiteral("9"));
    }

    void lineEditInsertColor()
    {
        MyLineEdit::colorPicker() = [](QWidget*, const QColor&) { return QColor(0xff, 0, 0); };
        MyLineEdit edit;
        edit.setInputType(MyLineEdit::Text);
        edit.setValue(QStringLiteral("abc"));
        edit.setCursorPosition(3);
        edit.openColorPicker();
        QCOMPARE(edit.text(), QStringLiteral("abcabc#ff0000"));
        MyLineEdit::colorPicker() = [](QWidget*, const QColor&) { return QColor(); };
        edit.openColorPicker();
        QCOMPARE(edit.text(), QStringLiteral("abcabc#ff0000"));
    }

    void lineEditContextMenu()
    {
        MyLineEditExtensionHandler handler;
        handler.display = [](const QJsonObject&) { return QStringLiteral("Gold"); };
        handler.open = [](QJsonObject&, QWidget*, int, bool&) { return true; };
        const int kind = MyLineEdit::registerExtensionHandler(handler);

        Form form;
        MyLineEdit* edit = form.add(new MyLineEdit);
        edit->setInputType(MyLineEdit::Text);
        edit->setColorInsertion(true);
        edit->setValue(QStringLiteral("Hero"));
        form.show();

        auto menuEntries = [](MyLineEdit* field) {
            QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(10, 30), field->mapToGlobal(QPoint(10, 30)));
            QApplication::sendEvent(field, &request);
            QMenu* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QStringList entries;
            if (!menu)
                return entries;
            for (QAction* action : menu->actions()) {
                if (action->isSeparator())
                    continue;
                // Standard entries carry their icons.
                if (action->text().startsWith(QStringLiteral("&Copy")) || action->text().startsWith(QStringLiteral("Select All")))
                    entries.append(action->icon().isNull() ? QStringLiteral("no icon") : QStringLiteral("icon"));
                entries.append(action->text().section(QLatin1Char('\t'), 0, 0));
            }
            QPointer<QMenu> closing = menu;
            menu->close();
            if (!QTest::qWaitFor([&closing]() { return closing.isNull(); }))
                entries.append(QStringLiteral("menu stayed open"));
            return entries;
        };
        QStringList entries = menuEntries(edit);
        QVERIFY(entries.contains(QStringLiteral("Insert Color")));
        QVERIFY(!entries.contains(QStringLiteral("Select Dynamic Value")));
        QCOMPARE(entries.count(QStringLiteral("icon")), 2);

        edit->setExtendable(QStringLiteral("0"), kind, &form.window);
        entries = menuEntries(edit);
        QVERIFY(entries.contains(QStringLiteral("Select Dynamic Value")));
        QVERIFY(!entries.contains(QStringLiteral("Return Input to Normal")));
        edit->openExtendDialog();
        entries = menuEntries(edit);
        QVERIFY(entries.contains(QStringLiteral("Return Input to Normal")));
        QVERIFY(!entries.contains(QStringLiteral("Insert Color")));
    }

    void lineEditFocusSelectsAll()
    {
        Form form;
        MyLineEdit* edit = form.add(new MyLineEdit);
        edit->setInputType(MyLineEdit::Text);
        edit->setValue(QStringLiteral("Health"));
        form.show();
        // The first click into the field selects all of it, the second places the cursor.
        QTest::mouseClick(edit, Qt::LeftButton, Qt::NoModifier, QPoint(30, 30));
        QVERIFY(edit->hasFocus());
        QCOMPARE(edit->selectedText(), QStringLiteral("Health"));
        QTest::mouseClick(edit, Qt::LeftButton, Qt::NoModifier, QPoint(30, 30));
        QVERIFY(edit->selectedText().isEmpty());
        QCOMPARE(animationOf(edit, "currState")->endValue().toInt(), 300);
    }

    // An interrupted look takes the share of its time that is left.
    void interruptedLookTakesTheRestOfItsTime()
    {
        Form form;
        MyLineEdit* edit = form.add(new MyLineEdit);
        MyComboBox* combo = form.add(new MyComboBox);
        MyCheckBox* check = form.add(new MyCheckBox(QStringLiteral("Check")));
        MyEitherBox* either = form.add(new MyEitherBox);
        MySlider* slider = form.add(new MySlider);
        form.show();

        sendEnter(edit);
        QPropertyAnimation* hover = animationOf(edit, "currState4");
        QCOMPARE(hover->duration(), 150);
        stopAt(hover, 50);
        QCOMPARE(edit->currState4(), 100);
        sendLeave(edit);
        QCOMPARE(hover->startValue().toInt(), 100);
        QCOMPARE(hover->endValue().toInt(), 0);
        QCOMPARE(hover->duration(), 50);
        stopAt(hover, 25);
        QCOMPARE(edit->currState4(), 50);
        sendEnter(edit);
        // From 50 up to 300: five sixths of 150 ms.
        QCOMPARE(hover->duration(), 125);

        // Focus: 250 ms in (OutCubic), 300 ms out, both by the share left.
        edit->setFocus();
        QPropertyAnimation* focus = animationOf(edit, "currState");
        QCOMPARE(focus->duration(), 250);
        QCOMPARE(focus->easingCurve().type(), QEasingCurve::OutCubic);
        focus->stop();
        edit->setCurrState(120);
        form.confirm->setFocus();
        QCOMPARE(focus->duration(), 120);

        sendEnter(combo);
        QPropertyAnimation* comboHover = animationOf(combo, "currState2");
        stopAt(comboHover, 100);
        QCOMPARE(combo->currState2(), 200);
        sendLeave(combo);
        QCOMPARE(comboHover->duration(), 100);

        check->setChecked(true);
        QPropertyAnimation* checking = animationOf(check, "currState");
        QCOMPARE(checking->duration(), 150);
        stopAt(checking, 60);
        QCOMPARE(check->currState(), 40);
        check->setChecked(false);
        QCOMPARE(checking->duration(), 60);

        either->click();
        QPropertyAnimation* selection = animationOf(either, "selection");
        QCOMPARE(selection->endValue().toDouble(), 1000.0);
        QCOMPARE(selection->duration(), 250);
        selection->pause();
        selection->setCurrentTime(250);
        either->click();
        QCOMPARE(selection->endValue().toDouble(), 0.0);
        QCOMPARE(selection->duration(), 250);

        sendEnter(slider);
        QPropertyAnimation* grow = animationOf(slider, "currState");
        stopAt(grow, 75);
        QCOMPARE(slider->currState(), 4.0);
        sendLeave(slider);
        QCOMPARE(grow->duration(), 75);
    }

    void disabledWidgetsDoNotReact()
    {
        Form form;
        QList<QWidget*> widgets = {form.add(new MyLineEdit), form.add(new MyComboBox), form.add(new MyCheckBox),
                                   form.add(new MyRadioButton), form.add(new MyEitherBox), form.add(new MySlider),
                                   form.add(new MyDialogOpener), form.add(new MyButton), form.add(new InflateButton),
                                   form.add(new MicroButton)};
        form.show();
        for (QWidget* widget : widgets) {
            widget->setEnabled(false);
            sendEnter(widget);
            for (QPropertyAnimation* animation : widget->findChildren<QPropertyAnimation*>())
                QVERIFY2(animation->state() != QAbstractAnimation::Running, widget->metaObject()->className());
        }
    }

    void clickableWidgetsShowAHand()
    {
        const QList<QWidget*> widgets = {new MyComboBox, new MyCheckBox, new MyRadioButton, new MyEitherBox,
                                         new MySlider, new MyDialogOpener, new MyButton, new InflateButton,
                                         new MicroButton};
        for (QWidget* widget : widgets) {
            QCOMPARE(widget->cursor().shape(), Qt::PointingHandCursor);
            delete widget;
        }
    }

    void comboBoxItems()
    {
        MyComboBox combo;
        QSignalSpy changes(&combo, &MyComboBox::whenChoiceChanges);
        QCOMPARE(combo.currentData(), -1);
        QCOMPARE(combo.currentIndex(), -1);
        combo.addItem(QStringLiteral("Up"), 8);
        combo.addItem(QStringLiteral("Down"), 2);
        combo.addItem(QStringLiteral("Left"), 4);
        QCOMPARE(combo.currentIndex(), 0);
        combo.selectByData(4);
        QCOMPARE(combo.currentIndex(), 2);
        QCOMPARE(combo.currentData(), 4);
        QCOMPARE(changes.count(), 0);
        combo.selectByText(QStringLiteral("Down"));
        QCOMPARE(combo.currentData(), 2);
        QCOMPARE(changes.count(), 1);
        combo.setCurrentIndex(7);
        QCOMPARE(combo.currentIndex(), 1);
        QCOMPARE(combo.getData(0).toInt(), 8);
        QTest::ignoreMessage(QtWarningMsg, "Index out of bounds at MyComboBox::getData");
        QVERIFY_EXCEPTION_THROWN(combo.getData(3), std::out_of_range);
        // Taking out a row above the selection keeps the selected row.
        combo.removeItem(0);
        QCOMPARE(combo.currentIndex(), 0);
        QCOMPARE(combo.currentText(), QStringLiteral("Down"));
        combo.removeItem(0);
        QCOMPARE(combo.currentText(), QStringLiteral("Left"));
        combo.clearItems();
        QCOMPARE(combo.currentData(), -1);
        QCOMPARE(combo.count(), 0);
    }

    void comboPopupKeyboardAndMouse()
    {
        Form form;
        MyComboBox* combo = form.add(new MyComboBox);
        for (int i = 0; i < 5; ++i)
            combo->addItem(QStringLiteral("Row %1").arg(i), i * 10);
        form.show();
        QSignalSpy changes(combo, &MyComboBox::whenChoiceChanges);

        QTest::mouseClick(combo, Qt::LeftButton);
        MyPopup* popup = combo->popup();
        QVERIFY(popup);
        QCOMPARE(MyPopup::openPopup(), popup);
        QCOMPARE(MyPopup::openOwner(), combo);
        QCOMPARE(popup->highlighted(), 0);
        // Up stops at the first row, Down at the last.
        QTest::keyClick(popup, Qt::Key_Up);
        QCOMPARE(popup->highlighted(), 0);
        for (int i = 0; i < 7; ++i)
            QTest::keyClick(popup, Qt::Key_Down);
        QCOMPARE(popup->highlighted(), 4);
        QTest::keyClick(popup, Qt::Key_Up);
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(combo->currentIndex(), 3);
        QCOMPARE(combo->currentData(), 30);
        QCOMPARE(changes.count(), 1);
        QVERIFY(!MyPopup::openPopup());
        QVERIFY(!combo->popup());
        QPointer<MyPopup> closing = popup;
        QTRY_VERIFY(!closing);

        // A click on a row of the list chooses it.
        QTest::mouseClick(combo, Qt::LeftButton);
        popup = combo->popup();
        QTRY_COMPARE(popup->height(), 5 * MyPopup::RowHeight);
        QTest::mouseMove(popup, QPoint(20, MyPopup::RowHeight + 5));
        QTest::mouseClick(popup, Qt::LeftButton, Qt::NoModifier, QPoint(20, MyPopup::RowHeight + 5));
        QCOMPARE(combo->currentIndex(), 1);
        QCOMPARE(changes.count(), 2);
    }

    void comboPopupHeightLimitAndWheel()
    {
        Form form;
        MyComboBox* combo = form.add(new MyComboBox);
        for (int i = 0; i < 40; ++i)
            combo->addItem(QStringLiteral("Row %1").arg(i), i);
        combo->setMaxVisibleRows(8);
        combo->setCurrentIndex(20, false);
        form.show();
        combo->showPopup();
        MyPopup* popup = combo->popup();
        QCOMPARE(popup->visibleHeight(), 8 * 24);
        QCOMPARE(popup->fullHeight(), 40 * 24);
        // The selected row stands in the middle.
        QCOMPARE(popup->scrollOffset(), 20 * 24 - 8 * 24 / 2);
        QTRY_COMPARE(popup->height(), 8 * 24);

        QWheelEvent down(QPointF(20, 20), QPointF(popup->mapToGlobal(QPoint(20, 20))), QPoint(), QPoint(0, -120),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(popup, &down);
        QCOMPARE(popup->scrollOffset(), 20 * 24 - 96 + 24);
        // Keys scroll the highlighted row into view.
        for (int i = 0; i < 39; ++i)
            QTest::keyClick(popup, Qt::Key_Down);
        QCOMPARE(popup->highlighted(), 39);
        QCOMPARE(popup->scrollOffset(), 40 * 24 - 8 * 24);
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(combo->currentIndex(), 39);

        // A short list has no limit.
        MyComboBox* shortCombo = form.add(new MyComboBox);
        shortCombo->addItem(QStringLiteral("One"));
        shortCombo->addItem(QStringLiteral("Two"));
        shortCombo->setMaxVisibleRows(8);
        QTRY_VERIFY(!MyPopup::openPopup());
        shortCombo->showPopup();
        QCOMPARE(shortCombo->popup()->visibleHeight(), 48);
        QCOMPARE(shortCombo->popup()->scrollOffset(), 0);
        shortCombo->popup()->close();
    }

    void comboPopupClosesOnOutsidePress()
    {
        Form form;
        MyComboBox* combo = form.add(new MyComboBox);
        combo->addItem(QStringLiteral("One"), 1);
        combo->addItem(QStringLiteral("Two"), 2);
        form.show();
        QSignalSpy changes(combo, &MyComboBox::whenChoiceChanges);
        combo->showPopup();
        QPointer<MyPopup> popup = combo->popup();
        QTRY_COMPARE(popup->height(), 48);

        // A press on the owner leaves the list open.
        QMouseEvent onOwner(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(combo->mapToGlobal(QPoint(5, 5))),
                            Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        MyPopup::closeOnOutsidePress(&onOwner);
        QVERIFY(!popup->isClosing());

        const QPoint elsewhere = form.confirm->mapToGlobal(form.confirm->rect().center());
        QMouseEvent outside(QEvent::MouseButtonPress, QPointF(1, 1), elsewhere, Qt::LeftButton, Qt::LeftButton,
                            Qt::NoModifier);
        MyPopup::closeOnOutsidePress(&outside);
        QVERIFY(popup->isClosing());
        QVERIFY(!MyPopup::openPopup());
        QCOMPARE(combo->currentIndex(), 0);
        QCOMPARE(changes.count(), 0);
        QTRY_VERIFY(!popup);
        QTRY_COMPARE(combo->currState(), 0);
    }

    void ctrlReturnInPopupConfirmsTheDialog()
    {
        TrovDialog dialog(nullptr);
        QVBoxLayout* layout = new QVBoxLayout(&dialog);
        MyComboBox* combo = new MyComboBox(&dialog);
        combo->addItem(QStringLiteral("One"));
        combo->addItem(QStringLiteral("Two"));
        QPushButton* confirm = new QPushButton(QStringLiteral("OK"), &dialog);
        layout->addWidget(combo);
        layout->addWidget(confirm);
        dialog.setConfirmButton(confirm);
        QSignalSpy clicked(confirm, &QPushButton::clicked);
        dialog.show();
        combo->showPopup();
        MyPopup* popup = combo->popup();
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(combo->currentIndex(), 0);
        QTRY_VERIFY(!MyPopup::openPopup());
    }

    void popupUnfoldsAndFolds()
    {
        Form form;
        MyComboBox* combo = form.add(new MyComboBox);
        for (int i = 0; i < 3; ++i)
            combo->addItem(QStringLiteral("Row %1").arg(i), i);
        form.show();
        combo->showPopup();
        MyPopup* popup = combo->popup();
        QPropertyAnimation* unfold = animationOf(popup, "geometry");
        QVERIFY(unfold);
        QCOMPARE(unfold->startValue().toRect().height(), 0);
        QCOMPARE(unfold->endValue().toRect().height(), 3 * 24);
        QCOMPARE(unfold->endValue().toRect().width(), combo->width());
        QCOMPARE(unfold->endValue().toRect().topLeft(), combo->mapToGlobal(QPoint(0, combo->height())));
        QCOMPARE(unfold->duration(), 200);
        QCOMPARE(unfold->easingCurve().type(), QEasingCurve::OutCubic);
        QTRY_COMPARE(popup->height(), 72);

        // The first close folds up and keeps the window; the close at the
        // fold's end goes through.
        QPointer<MyPopup> guarded = popup;
        popup->close();
        QVERIFY(popup->isVisible());
        QVERIFY(popup->isClosing());
        QPropertyAnimation* fold = animationOf(popup, "geometry");
        QVERIFY(fold);
        QCOMPARE(fold->endValue().toRect().height(), 0);
        QCOMPARE(fold->easingCurve().type(), QEasingCurve::InCubic);
        QTRY_VERIFY(!guarded);
    }

    void arrowTurnsDownWhileOpen()
    {
        Theme::setColor(ThemeKey::DropDownUIArrow, QColor(0xf0, 0xe0, 0x00));
        Theme::setColor(ThemeKey::DropDownUIBackground, QColor(0x10, 0x10, 0x10));
        MyComboBox combo;
        combo.resize(200, 60);
        // In a taller widget the field stands centred: the outline is 7 pixels down.
        QCOMPARE(pixel(&combo, 100, 7), themeColor(ThemeKey::DropDownUIHover));
        // At rest the arrow points left: its tip at (w - 7, 29), its back edge at w - 3.
        QCOMPARE(pixel(&combo, 195, 7 + 29), QColor(0xf0, 0xe0, 0x00));
        QCOMPARE(pixel(&combo, 192, 7 + 32), QColor(0x10, 0x10, 0x10));
        combo.setCurrState(300);
        // Open, it points down: the tip at (w - 5, 32).
        QCOMPARE(pixel(&combo, 194, 7 + 30), QColor(0xf0, 0xe0, 0x00));
        QCOMPARE(pixel(&combo, 192, 7 + 26), QColor(0x10, 0x10, 0x10));
    }

    void sliderGlidesAndRetargets()
    {
        Form form;
        MySlider* slider = form.add(new MySlider);
        slider->setRange(0, 100);
        slider->setFixedWidth(216);
        form.show();
        QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, QPoint(207, 20));
        QPropertyAnimation* glide = animationOf(slider, "value");
        QVERIFY(glide);
        QCOMPARE(glide->endValue().toInt(), 100);
        // The whole track takes 150 ms.
        QCOMPARE(glide->duration(), 150);
        glide->pause();
        TestEnvironment::moveWithButtons(slider, QPoint(107, 20), Qt::LeftButton);
        QCOMPARE(glide->endValue().toInt(), 50);
        glide->resume();
        QTRY_COMPARE(slider->value(), 50);
        // Without a glide running, a move sets the value at once.
        TestEnvironment::moveWithButtons(slider, QPoint(30, 20), Qt::LeftButton);
        QCOMPARE(slider->value(), 12);
        QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, QPoint(30, 20));
    }

    void radioButtonsAndLabels()
    {
        Form form;
        MyRadioButton* first = form.add(new MyRadioButton(QStringLiteral("First")));
        MyRadioButton* second = form.add(new MyRadioButton(QStringLiteral("Second")));
        InflateLabel* label = form.add(new InflateLabel(QStringLiteral("Project")));
        form.show();
        QTest::mouseClick(first, Qt::LeftButton, Qt::NoModifier, QPoint(5, 9));
        QVERIFY(first->isChecked());
        QTRY_COMPARE(first->currState(), 100);
        QTest::mouseClick(second, Qt::LeftButton, Qt::NoModifier, QPoint(5, 9));
        QVERIFY(second->isChecked());
        QVERIFY(!first->isChecked());
        QTRY_COMPARE(first->currState(), 0);
        QTRY_COMPARE(second->currState(), 100);

        label->setAnimatedText(QStringLiteral("Open Project"));
        QCOMPARE(label->text(), QStringLiteral("Open Project"));
        QPropertyAnimation* grow = animationOf(label, "transfer");
        QCOMPARE(grow->startValue().toInt(), 0);
        QCOMPARE(grow->endValue().toInt(), 1000);
        QCOMPARE(grow->easingCurve().type(), QEasingCurve::OutBack);
        QTRY_COMPARE(label->transfer(), 1000);
        label->restore();
        QCOMPARE(label->text(), QStringLiteral("Project"));
    }

    void eitherBoxAndCheckBox()
    {
        Form form;
        MyEitherBox* either = form.add(new MyEitherBox);
        either->setChoices(QStringLiteral("ON"), QStringLiteral("OFF"));
        MyCheckBox* check = form.add(new MyCheckBox(QStringLiteral("Visible")));
        form.show();
        QSignalSpy choices(either, &MyEitherBox::whenChoiceChanges);
        QVERIFY(either->choice());
        QTest::mouseClick(either, Qt::LeftButton);
        QVERIFY(!either->choice());
        QCOMPARE(choices.count(), 1);
        QTRY_COMPARE(either->selection(), 1000.0);
        either->setChoice(true, true);
        QCOMPARE(either->selection(), 0.0);
        QCOMPARE(choices.count(), 1);

        QTest::mouseClick(check, Qt::LeftButton, Qt::NoModifier, QPoint(40, 9));
        QVERIFY(check->isChecked());
        QTRY_COMPARE(check->currState(), 100);
        check->setNoAnimation(true);
        check->setChecked(false);
        QCOMPARE(check->currState(), 0);
    }

    void sliderPressMapsThePointer()
    {
        Form form;
        MySlider* slider = form.add(new MySlider);
        slider->setRange(0, 100);
        slider->setSingleStep(10);
        slider->setFixedWidth(216);
        form.show();
        // ratio = (x + 1 - 8) / (width - 16)
        QCOMPARE(slider->valueAt(107, Qt::NoModifier), 50);
        QCOMPARE(slider->valueAt(0, Qt::NoModifier), 0);
        QCOMPARE(slider->valueAt(400, Qt::NoModifier), 100);
        QCOMPARE(slider->valueAt(73, Qt::NoModifier), 33);
        QCOMPARE(slider->valueAt(73, Qt::ControlModifier), 30);
        slider->setSnap(true);
        QCOMPARE(slider->valueAt(73, Qt::NoModifier), 30);
        QCOMPARE(slider->valueAt(73, Qt::ControlModifier), 40);
        slider->setSnap(false);

        QSignalSpy moved(slider, &QSlider::sliderMoved);
        QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, QPoint(107, 20));
        QTRY_COMPARE(slider->value(), 50);
        QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, QPoint(107, 20));
        QVERIFY(moved.count() > 0);
        QCOMPARE(moved.last().first().toInt(), 50);
    }

    void dialogOpenerPressAndConfirm()
    {
        Form form;
        MyDialogOpener* opener = form.add(new MyDialogOpener);
        opener->setTitle(QStringLiteral("Switch"));
        opener->setValue(QStringLiteral("[0001] Show HUD"));
        form.show();
        QSignalSpy clicked(opener, &QPushButton::clicked);
        QTest::mousePress(opener, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
        QPropertyAnimation* press = animationOf(opener, "currState");
        QCOMPARE(press->endValue().toInt(), 300);
        QCOMPARE(press->duration(), 240);
        // A release outside cancels: no click, and the look eases out in 500 ms.
        QTest::mouseRelease(opener, Qt::LeftButton, Qt::NoModifier, QPoint(-30, 20));
        QCOMPARE(clicked.count(), 0);
        QCOMPARE(press->endValue().toInt(), 0);
        QCOMPARE(press->duration(), 500);
        QTest::mouseClick(opener, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
        QCOMPARE(clicked.count(), 1);
        opener->setCurrState(300);
        opener->confirm();
        QCOMPARE(press->startValue().toInt(), 300);
        QCOMPARE(press->duration(), 500);
    }

    void buttonsAndTextBox()
    {
        MyButton button(QStringLiteral("OK"));
        button.setObjectName(QStringLiteral("confirm"));
        button.setButtonColor(QColor(0x32, 0x64, 0x64));
        QCOMPARE(button.styleSheet(), QStringLiteral("#confirm { background-color: #326464; }"));
        QCOMPARE(button.focusPolicy(), Qt::NoFocus);
        QVERIFY(qobject_cast<QGraphicsDropShadowEffect*>(button.graphicsEffect()));

        InflateButton inflate;
        QVERIFY(!inflate.graphicsEffect());
        inflate.setCheckable(true);
        inflate.setChecked(true);
        QVERIFY(qobject_cast<QGraphicsDropShadowEffect*>(inflate.graphicsEffect()));
        inflate.setChecked(false);
        QVERIFY(!inflate.graphicsEffect());
        QCOMPARE(inflate.scale(), 1000);
        inflate.setEnabled(false);
        QCOMPARE(inflate.scale(), 500);

        MyPlainTextEdit text;
        text.setLineLimit(2);
        text.setPlainText(QStringLiteral("one\ntwo\nthree"));
        QCOMPARE(text.toPlainText(), QStringLiteral("one\ntwo\nthree"));
        text.setPlainText(QStringLiteral("one\ntwo\nthree\nfour"));
        QCOMPARE(text.toPlainText(), QStringLiteral("one\ntwo\nthree"));
    }

    void inflateButtonGrowsAndShrinks()
    {
        Form form;
        InflateButton* button = form.add(new InflateButton);
        form.show();
        QSignalSpy entered(button, &InflateButton::hoverEntered);
        sendEnter(button);
        QCOMPARE(entered.count(), 1);
        QPropertyAnimation* grow = animationOf(button, "transfer");
        QCOMPARE(grow->duration(), 250);
        QCOMPARE(grow->easingCurve().type(), QEasingCurve::OutBack);
        QCOMPARE(animationOf(button, "hover")->duration(), 100);
        stopAt(grow, 250);
        sendLeave(button);
        QCOMPARE(grow->duration(), 300);
        button->setTransfer(1100);
        sendEnter(button);
        sendLeave(button);
        QCOMPARE(grow->duration(), 330);
    }

    void toolTipFollowsTitleProperties()
    {
        Form form;
        QLabel* plain = form.add(new QLabel(QStringLiteral("plain")));
        MyLineEdit* edit = form.add(new MyLineEdit);
        edit->setProperty("mtt_title", QStringLiteral("Party Position"));
        edit->setProperty("mtt_desc", QStringLiteral("The position in the party.\n\nFirst is 1."));
        form.show();

        QHelpEvent onPlain(QEvent::ToolTip, QPoint(2, 2), plain->mapToGlobal(QPoint(2, 2)));
        QVERIFY(!UltimateToolTip::filterEvent(plain, &onPlain));
        QVERIFY(!UltimateToolTip::current());

        const QPoint at = edit->mapToGlobal(QPoint(10, 10));
        QHelpEvent onEdit(QEvent::ToolTip, QPoint(10, 10), at);
        QVERIFY(UltimateToolTip::filterEvent(edit, &onEdit));
        QPointer<UltimateToolTip> tip = UltimateToolTip::current();
        QVERIFY(tip);
        QCOMPARE(tip->owner(), edit);
        QCOMPARE(tip->title(), QStringLiteral("Party Position"));
        QVERIFY(UltimateToolTip::filterEvent(edit, &onEdit));
        QCOMPARE(UltimateToolTip::current(), tip.data());

        // The body is as wide as the longer of title and description, and
        // an empty description line is a smaller gap.
        QFont bold = tip->font();
        bold.setWeight(75);
        const QFontMetrics metrics(tip->font());
        const int width = qMax(QFontMetrics(bold).horizontalAdvance(QStringLiteral("Party Position")) + 4,
                               metrics.horizontalAdvance(QStringLiteral("The position in the party.")) + 4) + 16;
        QCOMPARE(tip->bodySize().width(), width);
        const int height = QFontMetrics(bold).height() + 12 + 2 * metrics.height() + metrics.height() / 2 + 10;
        QCOMPARE(tip->bodySize().height(), height);
        QTRY_COMPARE(tip->pos().y() + 6, at.y() + 21);

        sendLeave(edit);
        QVERIFY(!UltimateToolTip::current());
        QTRY_VERIFY(!tip);

        edit->setEnabled(false);
        QVERIFY(!UltimateToolTip::filterEvent(edit, &onEdit));
    }

    // Each look shows the theme's colours where the widget draws them.
    void pixelsFollowTheTheme()
    {
        const QColor base(0x10, 0x20, 0x30), hover(0x40, 0x50, 0x60), primary(0x20, 0xc0, 0x20),
            negative(0xd0, 0x10, 0x10), background(0x33, 0x22, 0x11), arrow(0xf0, 0xe0, 0x00);
        for (int key : {ThemeKey::InputUIBase, ThemeKey::DropDownUIHover, ThemeKey::EitherUIBase,
                        ThemeKey::DialogOpenerUIBase, ThemeKey::SliderBase})
            Theme::setColor(key, base);
        for (int key : {ThemeKey::InputUIHover, ThemeKey::DropDownUIBase, ThemeKey::EitherUIHover,
                        ThemeKey::DialogOpenerUIHover, ThemeKey::SliderHover})
            Theme::setColor(key, hover);
        for (int key : {ThemeKey::InputUIPrimary, ThemeKey::DropDownUIPrimary, ThemeKey::DialogOpenerUIPrimary,
                        ThemeKey::CheckBoxPrimary, ThemeKey::SliderPrimary})
            Theme::setColor(key, primary);
        for (int key : {ThemeKey::InputUIBackground, ThemeKey::DropDownUIBackground, ThemeKey::EitherUIBackground,
                        ThemeKey::DialogOpenerUIBackground, ThemeKey::CheckBoxBackground})
            Theme::setColor(key, background);
        Theme::setColor(ThemeKey::InputUINegative, negative);
        Theme::setColor(ThemeKey::DropDownUIArrow, arrow);
        Theme::setColor(ThemeKey::CheckBoxBase, base);
        Theme::setColor(ThemeKey::CheckBoxHover, hover);
        Theme::setColor(ThemeKey::HorizontalLineTop, base);
        Theme::setColor(ThemeKey::HorizontalLineBottom, hover);
        Theme::refreshCachedColors();

        Form form;
        MyLineEdit* edit = form.add(new MyLineEdit);
        MyComboBox* combo = form.add(new MyComboBox);
        MyEitherBox* either = form.add(new MyEitherBox);
        MyDialogOpener* opener = form.add(new MyDialogOpener);
        MyCheckBox* check = form.add(new MyCheckBox);
        MyHorizontalLine* line = form.add(new MyHorizontalLine);
        for (QWidget* widget : {static_cast<QWidget*>(edit), static_cast<QWidget*>(combo),
                                static_cast<QWidget*>(either), static_cast<QWidget*>(opener)})
            widget->setFixedSize(200, 46);
        check->setFixedSize(100, 18);
        form.show();
        form.confirm->setFocus();

        // Normal: outline in the base colour, background inside.
        QCOMPARE(pixel(edit, 100, 0), base);
        QCOMPARE(pixel(edit, 190, 10), background);
        QCOMPARE(pixel(combo, 100, 45), base);
        QCOMPARE(pixel(either, 0, 20), base);
        QCOMPARE(pixel(opener, 199, 20), base);
        QCOMPARE(pixel(combo, 195, 29), arrow);
        // Hover: the outline turns to the hover colour.
        edit->setCurrState4(300);
        combo->setCurrState2(300);
        either->setHover(1000);
        opener->setCurrState2(300);
        QCOMPARE(pixel(edit, 100, 0), hover);
        QCOMPARE(pixel(combo, 100, 0), hover);
        QCOMPARE(pixel(either, 100, 0), hover);
        QCOMPARE(pixel(opener, 100, 0), hover);
        // Focused and pressed: the underline in the primary colour, red
        // while the field is invalid.
        edit->setCurrState(300);
        combo->setCurrState(300);
        opener->setCurrState(300);
        QCOMPARE(pixel(edit, 100, 44), primary);
        QCOMPARE(pixel(edit, 5, 45), primary);
        QCOMPARE(pixel(combo, 100, 45), primary);
        QCOMPARE(pixel(opener, 100, 44), primary);
        edit->setCurrState2(300);
        QCOMPARE(pixel(edit, 100, 44), negative);
        // Half grown, the line covers the middle and not the ends.
        edit->setCurrState(150);
        QCOMPARE(pixel(edit, 100, 44), negative);
        QVERIFY(pixel(edit, 20, 44) != negative);
        // Disabled: no hover, no underline, everything dimmed.
        edit->setEnabled(false);
        QVERIFY(pixel(edit, 100, 44) != negative);
        QVERIFY(pixel(edit, 100, 0) != base);
        QVERIFY(pixel(edit, 100, 0) != hover);

        // The check box fills with the primary colour when checked.
        QCOMPARE(pixel(check, 13, 14), background);
        QCOMPARE(pixel(check, 1, 10), base);
        check->setCurrState(100);
        QCOMPARE(pixel(check, 13, 14), primary);
        check->setCurrState(50);
        QCOMPARE(pixel(check, 4, 14), primary);
        QCOMPARE(pixel(check, 13, 14), background);
        check->setCurrState2(100);
        QCOMPARE(pixel(check, 10, 1), hover);

        QCOMPARE(pixel(line, 5, 0), base);
        QCOMPARE(pixel(line, 5, 1), hover);
    }

    void comboInputOffersItsRows()
    {
        Form form;
        MyComboInput* input = form.add(new MyComboInput);
        input->setSuggestions({QStringLiteral("Hero"), QStringLiteral("Villain")});
        input->setValue(QStringLiteral("Hero"));
        form.show();
        input->resize(200, 46);
        QTest::mouseClick(input, Qt::LeftButton, Qt::NoModifier, QPoint(input->width() - 8, 30));
        MyPopup* popup = input->popup();
        QVERIFY(popup);
        QCOMPARE(popup->highlighted(), 0);
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(input->text(), QStringLiteral("Villain"));
        QCOMPARE(input->toJson(), QJsonValue(QStringLiteral("Villain")));
    }
};

VELMORA_TEST_MAIN(TestFormWidgets, QApplication)
#include "tst_formwidgets.moc"
