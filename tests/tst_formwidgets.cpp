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
#include "widgets/MyLineEdit.h"
#include "widgets/MyPlainTextEdit.h"
#include "widgets/MyPopup.h"
#include "widgets/MyRadioButton.h"
#include "widgets/MySlider.h"
#include "widgets/TrovDialog.h"
#include "widgets/UltimateToolTip.h"

#include <QApplication>
#include <QClipboard>
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

// The pointer entering or leaving a widget.
void send(QWidget* widget, QEvent::Type type)
{
    QEvent event(type);
    QApplication::sendEvent(widget, &event);
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
        QTest::newRow("separators and plus") << 1 << 0.0 << 99999.0 << 6 << "+1,000" << "1000" << true << "" << "1000";
        QTest::newRow("too many digits") << 1 << 0.0 << 99999999.0 << 4 << "123456" << "1234" << true << "" << "1234";
        QTest::newRow("minus takes no digit") << 1 << -99999.0 << 99999.0 << 4 << "-12345" << "-1234" << true << ""
                                              << "-1234";
        QTest::newRow("minus alone") << 1 << -5.0 << 5.0 << 4 << "-" << "-" << false << "D.N.E." << "-5";
        QTest::newRow("letters are refused") << 1 << 0.0 << 500.0 << 4 << "4x2" << "42" << true << "" << "42";
        QTest::newRow("decimal padded") << 2 << 0.0 << 10.0 << 4 << "3" << "3" << true << "" << "3.0";
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

    void lineEditInvalidPasteAndEmpty()
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
        // The hint flashes in and the line turns red.
        QTRY_COMPARE(edit->currState3(), 300);
        QTRY_COMPARE(edit->currState2(), 300);
        // A valid value again fades the hint out.
        QTest::keyClick(edit, Qt::Key_Backspace);
        QCOMPARE(edit->text(), QStringLiteral("50"));
        QCOMPARE(heard.last(), true);
        QTRY_COMPARE(edit->currState3(), 0);

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

    void lineEditProgrammaticValues()
    {
        MyLineEdit edit;
        edit.setNumberField(0, 100, 4);
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

        edit.setInputType(MyLineEdit::Text);
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
        QCOMPARE(edit->toJson().toObject().value(QStringLiteral("Id")).toInt(), 7);

        // A click on the extended field opens the dialog again.
        QTest::mouseClick(edit, Qt::LeftButton, Qt::NoModifier, QPoint(40, 30));
        QCOMPARE(opened, 2);

        // The dialog may take the extension away: the field is a number again.
        removeNext = true;
        edit->openExtendDialog();
        QVERIFY(!edit->isExtended());
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

    void lineEditClicksAndContextMenu()
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
        // The first click into the field selects all of it, the second places the cursor.
        QTest::mouseClick(edit, Qt::LeftButton, Qt::NoModifier, QPoint(30, 30));
        QVERIFY(edit->hasFocus());
        QCOMPARE(edit->selectedText(), QStringLiteral("Hero"));
        QTest::mouseClick(edit, Qt::LeftButton, Qt::NoModifier, QPoint(30, 30));
        QVERIFY(edit->selectedText().isEmpty());

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

        edit->setExtendable(QStringLiteral("0"), kind, &form.window);
        entries = menuEntries(edit);
        QVERIFY(entries.contains(QStringLiteral("Select Dynamic Value")));
        QVERIFY(!entries.contains(QStringLiteral("Return Input to Normal")));
        edit->openExtendDialog();
        entries = menuEntries(edit);
        QVERIFY(entries.contains(QStringLiteral("Return Input to Normal")));
        QVERIFY(!entries.contains(QStringLiteral("Insert Color")));
    }

    // An interrupted look takes the share of its time that is left.
    void interruptedLookTakesTheRestOfItsTime()
    {
        Form form;
        MyLineEdit* edit = form.add(new MyLineEdit);
        form.show();
        send(edit, QEvent::Enter);
        QPropertyAnimation* hover = animationOf(edit, "currState4");
        stopAt(hover, 50);
        send(edit, QEvent::Leave);
        stopAt(hover, 25);
        QCOMPARE(edit->currState4(), 50);
        send(edit, QEvent::Enter);
        // From 50 up to 300: five sixths of the 150 ms a whole hover takes.
        QCOMPARE(hover->duration(), 125);
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
            send(widget, QEvent::Enter);
            for (QPropertyAnimation* animation : widget->findChildren<QPropertyAnimation*>())
                QVERIFY2(animation->state() != QAbstractAnimation::Running, widget->metaObject()->className());
        }
    }

    void comboBoxItems()
    {
        MyComboBox combo;
        QSignalSpy changes(&combo, &MyComboBox::whenChoiceChanges);
        combo.addItem(QStringLiteral("Up"), 8);
        combo.addItem(QStringLiteral("Down"), 2);
        combo.addItem(QStringLiteral("Left"), 4);
        combo.selectByData(4);
        QCOMPARE(combo.currentIndex(), 2);
        QCOMPARE(changes.count(), 0);
        combo.selectByText(QStringLiteral("Down"));
        QCOMPARE(combo.currentData(), 2);
        QCOMPARE(changes.count(), 1);
        combo.setCurrentIndex(7);
        QCOMPARE(combo.currentIndex(), 1);
        QTest::ignoreMessage(QtWarningMsg, "Index out of bounds at MyComboBox::getData");
        QVERIFY_EXCEPTION_THROWN(combo.getData(3), std::out_of_range);
        // Taking out a row above the selection keeps the selected row.
        combo.removeItem(0);
        QCOMPARE(combo.currentText(), QStringLiteral("Down"));
        combo.clearItems();
        QCOMPARE(combo.currentData(), -1);
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
        QCOMPARE(popup->highlighted(), 0);
        // Up stops at the first row, Down at the last.
        QTest::keyClick(popup, Qt::Key_Up);
        QCOMPARE(popup->highlighted(), 0);
        for (int i = 0; i < 7; ++i)
            QTest::keyClick(popup, Qt::Key_Down);
        QCOMPARE(popup->highlighted(), 4);
        QTest::keyClick(popup, Qt::Key_Up);
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(combo->currentData(), 30);
        QCOMPARE(changes.count(), 1);
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
        QTRY_COMPARE(shortCombo->popup()->height(), 48);
        shortCombo->popup()->close();
    }

    // The list unfolds below its box and folds up before it goes.
    void comboPopupUnfoldsAndClosesOnOutsidePress()
    {
        Form form;
        MyComboBox* combo = form.add(new MyComboBox);
        combo->addItem(QStringLiteral("One"), 1);
        combo->addItem(QStringLiteral("Two"), 2);
        form.show();
        QSignalSpy changes(combo, &MyComboBox::whenChoiceChanges);
        combo->showPopup();
        QPointer<MyPopup> popup = combo->popup();
        QTRY_COMPARE(popup->geometry(), QRect(combo->mapToGlobal(QPoint(0, combo->height())), QSize(combo->width(), 48)));

        // A press on the owner leaves the list open.
        QMouseEvent onOwner(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(combo->mapToGlobal(QPoint(5, 5))),
                            Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        MyPopup::closeOnOutsidePress(&onOwner);
        QVERIFY(!popup->isClosing());

        const QPoint elsewhere = form.confirm->mapToGlobal(form.confirm->rect().center());
        QMouseEvent outside(QEvent::MouseButtonPress, QPointF(1, 1), elsewhere, Qt::LeftButton, Qt::LeftButton,
                            Qt::NoModifier);
        MyPopup::closeOnOutsidePress(&outside);
        QVERIFY(popup->isVisible() && popup->isClosing());
        QCOMPARE(combo->currentIndex(), 0);
        QCOMPARE(changes.count(), 0);
        QTRY_VERIFY(!popup);
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

    void arrowTurnsDownWhileOpen()
    {
        Theme::setColor(ThemeKey::DropDownUIArrow, QColor(0xf0, 0xe0, 0x00));
        Theme::setColor(ThemeKey::DropDownUIBackground, QColor(0x10, 0x10, 0x10));
        MyComboBox combo;
        combo.resize(200, 60);
        // In a taller widget the field stands centred, 7 pixels down. At rest
        // the arrow points left: its tip at (w - 7, 29), its back edge at w - 3.
        QCOMPARE(pixel(&combo, 195, 7 + 29), QColor(0xf0, 0xe0, 0x00));
        QCOMPARE(pixel(&combo, 192, 7 + 32), QColor(0x10, 0x10, 0x10));
        combo.setCurrState(300);
        // Open, it points down: the tip at (w - 5, 32).
        QCOMPARE(pixel(&combo, 194, 7 + 30), QColor(0xf0, 0xe0, 0x00));
        QCOMPARE(pixel(&combo, 192, 7 + 26), QColor(0x10, 0x10, 0x10));
    }

    void sliderFollowsThePointer()
    {
        Form form;
        MySlider* slider = form.add(new MySlider);
        slider->setRange(0, 100);
        slider->setSingleStep(10);
        slider->setFixedWidth(216);
        form.show();
        // ratio = (x + 1 - 8) / (width - 16); Ctrl or snapping rounds to the step.
        QCOMPARE(slider->valueAt(400, Qt::NoModifier), 100);
        QCOMPARE(slider->valueAt(73, Qt::NoModifier), 33);
        QCOMPARE(slider->valueAt(73, Qt::ControlModifier), 30);
        slider->setSnap(true);
        QCOMPARE(slider->valueAt(73, Qt::ControlModifier), 40);
        slider->setSnap(false);

        // A press glides there; a move during the glide retargets it.
        QSignalSpy moved(slider, &QSlider::sliderMoved);
        QTest::mousePress(slider, Qt::LeftButton, Qt::NoModifier, QPoint(207, 20));
        QPropertyAnimation* glide = animationOf(slider, "value");
        QVERIFY(glide);
        glide->pause();
        TestEnvironment::moveWithButtons(slider, QPoint(107, 20), Qt::LeftButton);
        glide->resume();
        QTRY_COMPARE(slider->value(), 50);
        QCOMPARE(moved.last().first().toInt(), 50);
        // Without a glide running, a move sets the value at once.
        TestEnvironment::moveWithButtons(slider, QPoint(30, 20), Qt::LeftButton);
        QCOMPARE(slider->value(), 12);
        QTest::mouseRelease(slider, Qt::LeftButton, Qt::NoModifier, QPoint(30, 20));
    }

    void choicesFollowClicks()
    {
        Form form;
        MyRadioButton* first = form.add(new MyRadioButton(QStringLiteral("First")));
        MyRadioButton* second = form.add(new MyRadioButton(QStringLiteral("Second")));
        MyEitherBox* either = form.add(new MyEitherBox);
        either->setChoices(QStringLiteral("ON"), QStringLiteral("OFF"));
        MyCheckBox* check = form.add(new MyCheckBox(QStringLiteral("Visible")));
        InflateLabel* label = form.add(new InflateLabel(QStringLiteral("Project")));
        form.show();
        QTest::mouseClick(first, Qt::LeftButton, Qt::NoModifier, QPoint(5, 9));
        QTest::mouseClick(second, Qt::LeftButton, Qt::NoModifier, QPoint(5, 9));
        QVERIFY(second->isChecked());
        QVERIFY(!first->isChecked());
        QTRY_COMPARE(first->currState(), 0);
        QTRY_COMPARE(second->currState(), 100);

        QSignalSpy choices(either, &MyEitherBox::whenChoiceChanges);
        QVERIFY(either->choice());
        QTest::mouseClick(either, Qt::LeftButton);
        QVERIFY(!either->choice());
        QCOMPARE(choices.count(), 1);
        QTRY_COMPARE(either->selection(), 1000.0);
        // Set from the document: no change reported.
        either->setChoice(true, true);
        QCOMPARE(choices.count(), 1);

        QTest::mouseClick(check, Qt::LeftButton, Qt::NoModifier, QPoint(40, 9));
        QVERIFY(check->isChecked());

        label->setAnimatedText(QStringLiteral("Open Project"));
        QTRY_COMPARE(label->transfer(), 1000);
        label->restore();
        QCOMPARE(label->text(), QStringLiteral("Project"));
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
        // A release outside cancels: no click, and the pressed look goes.
        QTest::mouseRelease(opener, Qt::LeftButton, Qt::NoModifier, QPoint(-30, 20));
        QCOMPARE(clicked.count(), 0);
        QTRY_COMPARE(opener->currState(), 0);
        QTest::mouseClick(opener, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
        QCOMPARE(clicked.count(), 1);
    }

    void textBoxKeepsItsLineLimit()
    {
        MyPlainTextEdit text;
        text.setLineLimit(2);
        text.setPlainText(QStringLiteral("one\ntwo\nthree"));
        QCOMPARE(text.toPlainText(), QStringLiteral("one\ntwo\nthree"));
        text.setPlainText(QStringLiteral("one\ntwo\nthree\nfour"));
        QCOMPARE(text.toPlainText(), QStringLiteral("one\ntwo\nthree"));
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
        QCOMPARE(tip->title(), QStringLiteral("Party Position"));
        // Asked again, the same tip stays.
        QVERIFY(UltimateToolTip::filterEvent(edit, &onEdit));
        QCOMPARE(UltimateToolTip::current(), tip.data());
        QTRY_COMPARE(tip->pos().y() + 6, at.y() + 21);

        send(edit, QEvent::Leave);
        QVERIFY(!UltimateToolTip::current());
        QTRY_VERIFY(!tip);

        edit->setEnabled(false);
        QVERIFY(!UltimateToolTip::filterEvent(edit, &onEdit));
    }

    // Each look shows the theme's colours where the widget draws them: the
    // line edit through every look, the combo box pressed, the check box.
    void pixelsFollowTheTheme()
    {
        const QColor base(0x10, 0x20, 0x30), hover(0x40, 0x50, 0x60), primary(0x20, 0xc0, 0x20),
            negative(0xd0, 0x10, 0x10), background(0x33, 0x22, 0x11);
        for (int key : {ThemeKey::InputUIBase, ThemeKey::DropDownUIHover, ThemeKey::CheckBoxBase})
            Theme::setColor(key, base);
        for (int key : {ThemeKey::InputUIHover, ThemeKey::DropDownUIBase, ThemeKey::CheckBoxHover})
            Theme::setColor(key, hover);
        for (int key : {ThemeKey::InputUIPrimary, ThemeKey::DropDownUIPrimary, ThemeKey::CheckBoxPrimary})
            Theme::setColor(key, primary);
        for (int key : {ThemeKey::InputUIBackground, ThemeKey::DropDownUIBackground, ThemeKey::CheckBoxBackground})
            Theme::setColor(key, background);
        Theme::setColor(ThemeKey::InputUINegative, negative);
        Theme::refreshCachedColors();

        Form form;
        MyLineEdit* edit = form.add(new MyLineEdit);
        MyComboBox* combo = form.add(new MyComboBox);
        MyCheckBox* check = form.add(new MyCheckBox);
        edit->setFixedSize(200, 46);
        combo->setFixedSize(200, 46);
        check->setFixedSize(100, 18);
        form.show();
        form.confirm->setFocus();

        // Normal: outline in the base colour, background inside.
        QCOMPARE(pixel(edit, 100, 0), base);
        QCOMPARE(pixel(edit, 190, 10), background);
        // Hover: the outline turns to the hover colour.
        edit->setCurrState4(300);
        QCOMPARE(pixel(edit, 100, 0), hover);
        // Focused and pressed: the underline in the primary colour, red
        // while the field is invalid.
        edit->setCurrState(300);
        combo->setCurrState(300);
        QCOMPARE(pixel(edit, 5, 45), primary);
        QCOMPARE(pixel(combo, 100, 45), primary);
        edit->setCurrState2(300);
        QCOMPARE(pixel(edit, 100, 44), negative);
        // Half grown, the line covers the middle and not the ends.
        edit->setCurrState(150);
        QVERIFY(pixel(edit, 20, 44) != negative);
        // Disabled: no hover, no underline, everything dimmed.
        edit->setEnabled(false);
        QVERIFY(pixel(edit, 100, 44) != negative);
        QVERIFY(pixel(edit, 100, 0) != base);
        QVERIFY(pixel(edit, 100, 0) != hover);

        // The check box fills with the primary colour when checked.
        QCOMPARE(pixel(check, 13, 14), background);
        check->setCurrState(100);
        QCOMPARE(pixel(check, 13, 14), primary);
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
        QCOMPARE(input->toJson(), QJsonValue(QStringLiteral("Villain")));
    }
};

VELMORA_TEST_MAIN(TestFormWidgets, QApplication)
#include "tst_formwidgets.moc"
