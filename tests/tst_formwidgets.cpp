#include "TestEnvironment.h"

#include "theme/ThemeManager.h"
#include "widgets/MyCheckBox.h"
#include "widgets/MyComboBox.h"
#include "widgets/MyEitherBox.h"
#include "widgets/MyLineEdit.h"
#include "widgets/MyPlainTextEdit.h"
#include "widgets/MyPopup.h"

#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>

#include <stdexcept>

namespace {

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

        QTest::newRow("above maximum") << 1 << 1.0 << 500.0 << 4 << "501" << "501" << false << "> 500" << "500";
        QTest::newRow("separators and plus") << 1 << 0.0 << 99999.0 << 6 << "+1,000" << "1000" << true << "" << "1000";
        QTest::newRow("minus alone") << 1 << -5.0 << 5.0 << 4 << "-" << "-" << false << "D.N.E." << "-5";
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
        QCOMPARE(heard.value(heard.size() - 1, true), false);
        // A valid value again is heard as valid.
        QTest::keyClick(edit, Qt::Key_Backspace);
        QCOMPARE(edit->text(), QStringLiteral("50"));
        QCOMPARE(heard.last(), true);

        // Deleting all and leaving restores the minimum.
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Backspace);
        QVERIFY(!form.confirm->isEnabled());
        QTest::mouseClick(form.other, Qt::LeftButton);
        QCOMPARE(edit->text(), QStringLiteral("1"));
    }

    void lineEditProgrammaticValues()
    {
        MyLineEdit edit;
        edit.setNumberField(0, 100, 4);
        // fromJson reads by input type and normalises.
        edit.fromJson(QJsonValue(QStringLiteral("not a number")), 42);
        QCOMPARE(edit.text(), QStringLiteral("42"));
        QCOMPARE(edit.toJson(), QJsonValue(42));

        edit.setInputType(MyLineEdit::Text);
        edit.fromJson(QJsonValue(5), 0, 0, QStringLiteral("fallback"));
        QCOMPARE(edit.text(), QStringLiteral("fallback"));
    }

    void lineEditExtension()
    {
        static bool removeNext = false;
        MyLineEditExtensionHandler handler;
        handler.display = [](const QJsonObject& data) { return QStringLiteral("Variable %1").arg(data.value(QStringLiteral("Id")).toInt()); };
        handler.open = [](QJsonObject& data, QWidget*, int, bool& removed) {
            if (removeNext) {
                removed = true;
                return false;
            }
            data.insert(QStringLiteral("Id"), 7);
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
        QCOMPARE(edit->toJson().toObject().value(QStringLiteral("Id")).toInt(), 7);

        // The dialog may take the extension away: the field is a number again.
        removeNext = true;
        edit->openExtendDialog();
        QVERIFY(!edit->isExtended());
        QCOMPARE(edit->toJson(), QJsonValue(33));
        removeNext = false;

        // An object for a kind nobody registered is read as a plain value.
        MyLineEdit* unknown = form.add(new MyLineEdit);
        unknown->setExtendable(QStringLiteral("5"), kind + 100, &form.window);
        unknown->fromJson(QJsonObject{{QStringLiteral("Id"), 3}}, 9);
        QVERIFY(!unknown->isExtended());
        QCOMPARE(unknown->text(), QStringLiteral("9"));
    }

    void comboBoxItems()
    {
        MyComboBox combo;
        combo.addItem(QStringLiteral("Up"), 8);
        combo.addItem(QStringLiteral("Down"), 2);
        combo.addItem(QStringLiteral("Left"), 4);
        combo.selectByText(QStringLiteral("Down"));
        combo.setCurrentIndex(7);
        QCOMPARE(combo.currentIndex(), 1);
        QTest::ignoreMessage(QtWarningMsg, "Index out of bounds at MyComboBox::getData");
        QVERIFY_EXCEPTION_THROWN(combo.getData(3), std::out_of_range);
        // Taking out a row above the selection keeps the selected row.
        combo.removeItem(0);
        QCOMPARE(combo.currentText(), QStringLiteral("Down"));
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
        // Down stops at the last row.
        for (int i = 0; i < 7; ++i)
            QTest::keyClick(popup, Qt::Key_Down);
        QCOMPARE(popup->highlighted(), 4);
        QTest::keyClick(popup, Qt::Key_Up);
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(combo->currentData(), 30);
        QCOMPARE(changes.count(), 1);
    }

    void choicesFollowClicks()
    {
        Form form;
        MyEitherBox* either = form.add(new MyEitherBox);
        either->setChoices(QStringLiteral("ON"), QStringLiteral("OFF"));
        MyCheckBox* check = form.add(new MyCheckBox(QStringLiteral("Visible")));
        form.show();
        QSignalSpy choices(either, &MyEitherBox::whenChoiceChanges);
        QTest::mouseClick(either, Qt::LeftButton);
        QVERIFY(!either->choice());
        QCOMPARE(choices.count(), 1);
        // Set from the document: no change reported.
        either->setChoice(true, true);
        QCOMPARE(choices.count(), 1);

        QTest::mouseClick(check, Qt::LeftButton, Qt::NoModifier, QPoint(40, 9));
        QVERIFY(check->isChecked());
    }

    void textBoxKeepsItsLineLimit()
    {
        MyPlainTextEdit text;
        text.setLineLimit(2);
        text.setPlainText(QStringLiteral("one\ntwo\nthree\nfour"));
        QCOMPARE(text.toPlainText(), QStringLiteral("one\ntwo\nthree"));
    }
};

VELMORA_TEST_MAIN(TestFormWidgets, QApplication)
#include "tst_formwidgets.moc"
