#include "tests/profiles/profile_rig.h"

#include "profiles/panel/open_save_profile.h"
#include "profiles/profile_folder.h"
#include "tests/support/rows.h"
#include "ui/question.h"

#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>

namespace
{
/// The dialog that is open, once it is.
template <typename Dialog>
Dialog* openDialog()
{
    Dialog* found = nullptr;
    const bool isOpen = QTest::qWaitFor([&found] {
        found = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        return found != nullptr;
    });
    return isOpen ? found : (qFatal("no dialog"), nullptr);
}

/// Answers the question about a profile; no is what Return says.
void answer(const QString& name, bool isYes)
{
    auto* question = openDialog<Question>();
    QVERIFY(question->findChild<QLabel*>("message")->text().contains('"' + name + '"'));
    if (isYes)
        QTest::mouseClick(question->findChild<QPushButton*>("yes"), Qt::LeftButton);
    else
        QTest::keyClick(question, Qt::Key_Return);
}
} // namespace

/// The profiles panel by mouse and keys, over files.
class ProfilesPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_rig = std::make_unique<ProfileRig>();
        m_panel = new openSaveProfile(m_rig->profiles(), &m_rig->window());
        m_rig->profiles().store().exclude(m_panel);
        m_rig->window().layout()->addWidget(m_panel);
        m_panel->show();
        m_rig->window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
        m_rig->get("profile_name")->setFocus();
        m_rig->takeLog();
    }
    void cleanup() { m_rig.reset(); }

    void savesAndAppliesQuickProfiles()
    {
        QVERIFY(!QFileInfo::exists(m_rig->profiles().folder()));
        m_rig->get<QPushButton>("FM")->setChecked(true);
        saveQuick(" with   FM & more ");
        QCOMPARE(m_rig->get<QLineEdit>("profile_name")->text(), QString());
        QVERIFY(QFile::exists(quickPath("with FM & more")));
        m_rig->get<QPushButton>("FM")->setChecked(false);
        saveQuick("without");
        QCOMPARE(shown(), QStringList({"with FM & more", "without"}));
        QTRY_VERIFY(m_rig->get<QPushButton>("quick_1")->text().contains("FM && more"));
        m_rig->takeLog();
        const std::pair<const char*, QStringList> clicks[] = {
            {"quick_1", {"FM on"}}, {"quick_1", {}}, {"quick_2", {"FM off"}}};
        for (const auto& [button, logged] : clicks) {
            click(button);
            QCOMPARE(m_rig->takeLog().filter("FM o"), logged);
        }
    }

    void nineHaveAKey()
    {
        for (int i = 1; i <= 10; ++i)
            m_rig->profiles().saveQuickProfile(QString::number(i));
        m_panel->refresh();
        QCOMPARE(shown().size(), 10);
        m_panel->hide();
        for (int i = 1; i <= 9; ++i) {
            m_rig->takeLog();
            press(Qt::Key(Qt::Key_0 + i));
            QCOMPARE(m_rig->log.last(), QString("message: Profile applied: %1").arg(i));
        }
    }

    /// A number is a key of the user's: it stays whatever happens around it.
    void numbersStay()
    {
        using Names = QMap<int, QString>;
        for (const char* name : {"m", "z", "a"})
            saveQuick(name);
        QCOMPARE(numbered(), Names({{1, "m"}, {2, "z"}, {3, "a"}}));
        click("delete_2");
        answer("z", true);
        QCOMPARE(numbered(), Names({{1, "m"}, {3, "a"}}));
        QCOMPARE(appliedBy(Qt::Key_2), QStringList());
        QCOMPARE(appliedBy(Qt::Key_3), QStringList("message: Profile applied: a"));
        saveQuick("b");
        saveQuick("c");
        QCOMPARE(numbered(), Names({{1, "m"}, {2, "b"}, {3, "a"}, {4, "c"}}));

        // Taken over by hand: from another, or a free one.
        chooseNumber(3, 1);
        chooseNumber(4, 7);
        const Names moved{{1, "a"}, {2, "b"}, {3, "m"}, {7, "c"}};
        QCOMPARE(numbered(), moved);
        QCOMPARE(appliedBy(Qt::Key_7), QStringList("message: Profile applied: c"));
        click("rename_7");
        QTest::keyClicks(m_rig->get("name_7"), "A first\r");
        QCOMPARE(numbered().value(7), QString("A first"));

        // Another run of the program finds them.
        delete m_panel;
        m_panel = new openSaveProfile(m_rig->profiles(), &m_rig->window());
        QCOMPARE(numbered().keys(), moved.keys());
        QCOMPARE(numbered().value(1), QString("a"));
    }

    void numbersFileMayBeAnything()
    {
        constexpr int tooLarge = 2 << 20; // to be read, and so kept as it is
        const auto row = freshRows(this, [this](const QByteArray& bytes, const QStringList& names) {
            for (const char* name : {"a", "b", "c"})
                saveQuick(name);
            const QString numbers = m_rig->profiles().folder() + "/quick_numbers.txt";
            QVERIFY(QFile::remove(numbers));
            if (!bytes.isEmpty())
                writeFile(numbers, bytes);
            m_panel->refresh();
            QStringList found;
            const QMap<int, QString> now = numbered();
            for (auto each = now.begin(); each != now.end(); ++each)
                found << QString("%1 %2").arg(each.key()).arg(each.value());
            QCOMPARE(found, names);
            QVERIFY(bytes.size() < tooLarge || bytesOf(numbers) == bytes);
        });
        row("none", QByteArray(), QStringList{"1 a", "2 b", "3 c"});
        row("too large", QByteArray(tooLarge, '1'), QStringList{"1 a", "2 b", "3 c"});
        row("garbage", QByteArray("\0\xff 7\n-1 x\n0 y", 14), QStringList{"1 a", "2 b", "3 c"});
        row("doubled", QByteArray("2 QUICK_Profile_b.xml\n2 QUICK_Profile_a.xml\n"),
            QStringList{"1 b", "2 a", "3 c"});
        row("of others", QByteArray("1 QUICK_Profile_x.xml\r\n5 QUICK_Profile_b.xml\n"),
            QStringList{"1 a", "2 c", "5 b"});
    }

    void theMarkFollows()
    {
        QCOMPARE(marked(), QString());
        saveQuick("y");
        saveQuick("x");
        QCOMPARE(marked(), QString("x"));
        // There and back.
        change("box");
        QCoreApplication::processEvents();
        QCOMPARE(marked(), QString("x*"));
        change("box");
        QTRY_COMPARE(marked(), QString("x"));
        // Recalling it or another one ends the difference, and the mark follows.
        change("box");
        click("quick_2");
        QCOMPARE(marked(), QString("x"));
        click("quick_1");
        QCOMPARE(marked(), QString("y"));
        click("rename_1");
        QTest::keyClicks(m_rig->get("name_1"), "w\r");
        QCOMPARE(marked(), QString("w"));
        click("delete_1");
        answer("w", true);
        QCOMPARE(marked(), QString());
    }

    void stepSizesAreNoDifference()
    {
        saveQuick("x");
        m_rig->variables["Freq_Step"] = 5;
        change("FREQ");
        change("FREQ");
        QCoreApplication::processEvents();
        QCOMPARE(marked(), QString("x"));
        m_rig->variables["Text_Name"] = "other";
        change("FREQ");
        change("FREQ");
        QTRY_COMPARE(marked(), QString("x*"));
    }

    void appliedInPartDiffers()
    {
        m_rig->get<QPushButton>("AM")->setChecked(true);
        saveQuick("x");
        m_rig->get<QPushButton>("AM")->setChecked(false);
        m_rig->inPause = [this] { m_rig->profiles().stop(); };
        click("quick_1");
        QCOMPARE(marked(), QString("x*"));
        change("FREQ");
        change("FREQ");
        QCoreApplication::processEvents();
        QCOMPARE(marked(), QString("x*"));
    }

    void replacesOnlyWhenToldTo()
    {
        saveQuick("a");
        m_rig->get<QPushButton>("FM")->setChecked(true);
        for (const bool isYes : {false, true}) {
            saveQuick("a");
            answer("a", isYes);
            QCOMPARE(bytesOf(quickPath("a")).contains("<FM>ON</FM>"), isYes);
        }
        QCOMPARE(shown(), QStringList("a"));
    }

    void renames()
    {
        const auto row = freshRows(this, [this](const QString& end, const QStringList& names) {
            saveQuick("b");
            saveQuick("c");
            click("rename_1");
            auto* entry = m_rig->get<QLineEdit>("name_1");
            QVERIFY(entry->hasFocus());
            QTest::keyClicks(entry, "d");
            if (end.isEmpty())
                m_rig->get("profile_name")->setFocus();
            else
                QTest::keyClick(entry, Qt::Key(QKeySequence(end)[0]));
            QVERIFY(!m_rig->get("name_1")->isVisible());
            QVERIFY(m_rig->get("quick_1")->isVisible());
            QCOMPARE(shown(), names);
            for (const char* name : {"b", "c", "d"})
                QCOMPARE(QFile::exists(quickPath(name)), names.contains(name));
            m_rig->takeLog();
            click("quick_2");
            QCOMPARE(m_rig->takeLog().last(), "message: Profile applied: " + names.last());
        });
        row("Return", "Return", QStringList{"d", "c"});
        row("Escape", "Esc", QStringList{"b", "c"});
        row("another field", "", QStringList{"b", "c"});
    }

    void deletesOnlyWhenToldTo()
    {
        saveQuick("a");
        saveQuick("b");
        for (const bool isYes : {false, true}) {
            click("delete_1");
            answer("a", isYes);
            QCOMPARE(shown().join(' '), QString(isYes ? "b" : "a b"));
        }
        QVERIFY(!QFile::exists(quickPath("a")));
        QCOMPARE(m_rig->takeLog().last(), QString("message: Profile deleted: a"));
    }

    void refusesNames()
    {
        const QString characters =
            "error: A file name can't contain any of the following characters:"
            "\n/ : * ? \" < > |";
        for (const QString name :
             {"a/b", "a:b", "a*b", "a?b", "a\"b", "a<b", "a>b", "a|b", "a\\b", "Last"}) {
            saveQuick(name);
            QCOMPARE(
                m_rig->takeLog(),
                QStringList(name == "Last" ? "message: This name is reserved: Last" : characters));
            QCOMPARE(shown(), QStringList());
            // It can be corrected.
            QCOMPARE(m_rig->get<QLineEdit>("profile_name")->text(), name);
        }
    }

    void followsTheFolder()
    {
        saveQuick("b");
        QVERIFY(m_rig->profiles().saveLast());
        QVERIFY(QFile::copy(quickPath("b"), quickPath("copy")));
        // It is listed under the name in its file.
        QTRY_COMPARE(shown(), QStringList({"b", "b"}));
        QVERIFY(QFile::rename(m_rig->fileOf("no profile"), quickPath("a")));
        QTRY_COMPARE(shown(), QStringList({"b", "b", "a"}));
        QVERIFY(QFile::remove(quickPath("b")));
        QTRY_COMPARE(shown(), QStringList({"b", "a"}));
        m_rig->takeLog();
        click("quick_3");
        QCOMPARE(m_rig->takeLog(), QStringList("message: The profile is damaged, nothing applied: "
                                               "QUICK_Profile_a.xml"));
        QVERIFY(QDir(m_rig->profiles().folder()).removeRecursively());
        QTRY_COMPARE(shown(), QStringList());
        saveQuick("again");
        QVERIFY(QFile::remove(quickPath("again")));
        QTRY_COMPARE(shown(), QStringList());
    }

    void listsThousands()
    {
        saveQuick("0");
        const QByteArray bytes = bytesOf(quickPath("0"));
        for (int i = 1; i < 3000; ++i)
            writeFile(quickPath(QString::number(i)), bytes);
        m_panel->refresh();
        // Three thousand rows of widgets would block the window: a row is made when one comes to
        // it, by the wheel or by Tab.
        QVERIFY(shown().size() < 500);
        auto* bar = m_panel->findChild<QScrollArea*>()->verticalScrollBar();
        QTRY_VERIFY((bar->setValue(bar->maximum()), shown().size() > 200));
        QTRY_VERIFY(bar->value() < bar->maximum());
        const int count = shown().size();
        m_panel->findChild<QWidget*>(QString("rename_%1").arg(count))->setFocus();
        QTest::keyClick(m_rig->window().focusWidget(), Qt::Key_Tab);
        QTRY_VERIFY(shown().size() > count);
        QTest::keyClick(m_rig->window().focusWidget(), Qt::Key_Tab);
        QCOMPARE(m_rig->window().focusWidget()->objectName(), QString("quick_%1").arg(count + 1));
    }

    void opensAndSavesFiles()
    {
        for (const char* name : {"AM", "FM"})
            m_rig->get<QPushButton>(name)->setChecked(true);
        click("save_profile");
        const QString proposed =
            openDialog<QFileDialog>()->findChild<QLineEdit*>("fileNameEdit")->text();
        const QRegularExpression proposal("^[\\d.]{8}_[\\d.]{8}\\.xml$");
        QVERIFY2(proposal.match(proposed).hasMatch(), qPrintable(proposed));
        chooseFile("by.hand");
        const QString path = m_rig->path("Veltro KLV/by.hand.xml");
        QTRY_VERIFY(QFile::exists(path));
        QVERIFY(bytesOf(path).contains("<QUICK_Profile_KLV>by.hand</QUICK_Profile_KLV>"));
        QCOMPARE(shown(), QStringList());

        for (const char* name : {"AM", "FM"})
            m_rig->get<QPushButton>(name)->setChecked(false);
        int dialogsInReplay = -1;
        m_rig->inPause = [&] {
            dialogsInReplay = m_rig->window().findChildren<QFileDialog*>().size();
        };
        click("open_profile");
        chooseFile("by.hand.xml");
        QTRY_VERIFY(m_rig->log.contains("message: Profile applied: by.hand"));
        QVERIFY(m_rig->get<QPushButton>("FM")->isChecked());
        // Otherwise it could be closed while its choice is still being processed.
        QCOMPARE(dialogsInReplay, 0);
    }

    void refusesFileNames()
    {
        click("save_profile");
        chooseFile("what?");
        QTRY_COMPARE(m_rig->log.size(), 1);
        QVERIFY(m_rig->log.first().startsWith("error: A file name can't contain any of"));
        QCOMPARE(QDir(m_rig->profiles().folder()).entryList(QDir::Files), QStringList());
    }

private:
    /// A second change takes the first back.
    void change(const QString& name)
    {
        auto* control = m_rig->get(qPrintable(name));
        if (auto* button = qobject_cast<QAbstractButton*>(control)) {
            button->toggle();
        } else if (auto* box = qobject_cast<QComboBox*>(control)) {
            box->setCurrentIndex(1 - box->currentIndex());
        } else {
            auto* field = qobject_cast<QLineEdit*>(control);
            field->setText(field->text() == "7" ? m_before : (m_before = field->text(), "7"));
        }
    }
    void click(const char* name) { QTest::mouseClick(m_rig->get(name), Qt::LeftButton); }
    /// With Ctrl, in the window.
    void press(Qt::Key key)
    {
        QTest::keyClick(m_rig->window().windowHandle(), key, Qt::ControlModifier);
    }
    /// What is said of it, with the window in front again after a dialog or a menu.
    QStringList appliedBy(Qt::Key key)
    {
        m_rig->window().activateWindow();
        if (!QTest::qWaitFor([] { return !QApplication::activeModalWidget(); }) ||
            !QTest::qWaitForWindowActive(&m_rig->window()))
            return {"not active"};
        m_rig->takeLog();
        press(key);
        return m_rig->takeLog().filter("applied");
    }
    void saveQuick(const QString& name)
    {
        auto* field = m_rig->get<QLineEdit>("profile_name");
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, name);
        click("save_quick");
    }
    static void chooseFile(const QString& name)
    {
        auto* field = openDialog<QFileDialog>()->findChild<QLineEdit*>("fileNameEdit");
        field->setText(name);
        QTest::keyClick(field, Qt::Key_Return);
    }
    /// By number.
    QMap<int, QString> numbered() const
    {
        QMap<int, QString> names;
        const QRegularExpression quick("^quick_(\\d+)$");
        for (const QPushButton* button : m_panel->findChildren<QPushButton*>(quick))
            names[quick.match(button->objectName()).captured(1).toInt()] = button->accessibleName();
        return names;
    }
    QStringList shown() const { return numbered().values(); }
    void chooseNumber(int from, int to)
    {
        click(qPrintable(QString("number_%1").arg(from)));
        auto* menu = m_panel->findChild<QMenu*>("numbers");
        QVERIFY(menu && menu->isVisible());
        menu->findChild<QAction*>(QString("to_%1").arg(to))->trigger();
        menu->close();
        QTRY_VERIFY(!m_panel->findChild<QMenu*>("numbers"));
    }
    /// The profile that is marked, with "*" while the panels differ from it.
    QString marked() const
    {
        QString found;
        for (const int number : numbered().keys()) {
            const auto* button = m_panel->findChild<QPushButton*>(QString("quick_%1").arg(number));
            const bool differs =
                m_panel->findChild<QLabel*>(QString("differs_%1").arg(number))->isVisible();
            if (button->property("lit").toBool())
                found += button->accessibleName();
            if (differs)
                found += '*';
        }
        return found;
    }
    QString quickPath(const QString& name) const
    {
        return quickProfilePath(m_rig->profiles().folder(), name);
    }

    std::unique_ptr<ProfileRig> m_rig;
    openSaveProfile* m_panel = nullptr;
    QString m_before;
};

QTEST_MAIN(ProfilesPanelTest)
#include "profiles_panel_test.moc"
