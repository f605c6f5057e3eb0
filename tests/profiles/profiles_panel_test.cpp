#include "tests/profiles/profile_rig.h"

#include "profiles/panel/open_save_profile.h"
#include "profiles/profile_folder.h"
#include "tests/support/documents_folder.h"
#include "tests/support/rows.h"
#include "ui/files/user_folder.h"

#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScrollBar>
#include <QToolButton>

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
} // namespace

/// The profiles panel by mouse and keys, over files.
class ProfilesPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_rig.reset(); }

    void savesAndAppliesQuickProfiles();
    void nineHaveAKey();
    void replacesOnlyWhenToldTo_data();
    void replacesOnlyWhenToldTo();
    void renames();
    void leavesTheNameAsItWas();
    void deletesOnlyWhenToldTo();
    void refusesNames_data();
    void refusesNames();
    void followsTheFolder();
    void listsThousands();
    void opensAndSavesFiles();
    void refusesFileNames();
    void liesInTheUsersDocuments();

private:
    void click(const QString& name)
    {
        QTest::mouseClick(m_panel->findChild<QWidget*>(name), Qt::LeftButton);
    }
    void saveQuick(const QString& name)
    {
        auto* field = m_rig->get<QLineEdit>("profile_name");
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, name);
        click("save_quick");
    }
    QStringList shown() const
    {
        QStringList names;
        while (auto* button = m_panel->findChild<QPushButton*>(
                   QStringLiteral("quick_%1").arg(names.size() + 1)))
            names << button->accessibleName();
        return names;
    }
    QString quickPath(const QString& name) const
    {
        return quickProfilePath(m_rig->profiles().folder(), name);
    }

    std::unique_ptr<ProfileRig> m_rig;
    openSaveProfile* m_panel = nullptr;
};

void ProfilesPanelTest::init()
{
    m_rig = std::make_unique<ProfileRig>();
    m_panel = new openSaveProfile(m_rig->profiles(), &m_rig->window());
    m_rig->window().layout()->addWidget(m_panel);
    m_panel->show();
    m_rig->window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
    m_rig->get("profile_name")->setFocus();
    m_rig->takeLog();
}

void ProfilesPanelTest::savesAndAppliesQuickProfiles()
{
    QCOMPARE(shown(), QStringList());
    QVERIFY(!QFileInfo::exists(m_rig->profiles().folder()));
    m_rig->get<QPushButton>("FM")->setChecked(true);
    saveQuick(" with   FM & more ");
    QCOMPARE(m_rig->get<QLineEdit>("profile_name")->text(), QString());
    QVERIFY(QFile::exists(quickPath("with FM & more")));
    m_rig->get<QPushButton>("FM")->setChecked(false);
    saveQuick("without");
    QCOMPARE(shown(), QStringList({"with FM & more", "without"}));
    QTRY_VERIFY(m_panel->findChild<QPushButton*>("quick_1")->text().contains("FM && more"));
    QVERIFY(!m_panel->findChild<QPushButton*>("quick_1")->isCheckable());
    m_rig->takeLog();

    click("quick_1");
    QVERIFY(m_rig->takeLog().contains("FM on"));
    click("quick_1");
    QCOMPARE(m_rig->takeLog().filter("FM on"), QStringList());
    click("quick_2");
    QVERIFY(m_rig->takeLog().contains("FM off"));
}

void ProfilesPanelTest::nineHaveAKey()
{
    for (int i = 1; i <= 10; ++i)
        m_rig->profiles().saveQuickProfile(QString::number(i));
    m_panel->refresh();
    QCOMPARE(shown().size(), 10);
    m_panel->hide();
    m_rig->takeLog();
    for (int i = 1; i <= 9; ++i) {
        QTest::keyClick(m_rig->window().windowHandle(), Qt::Key(Qt::Key_0 + i),
                        Qt::ControlModifier);
        QCOMPARE(m_rig->takeLog().filter("message"),
                 QStringList(QString("message: Profile applied: %1").arg(i)));
    }
    m_rig->profiles().choose(quickPath("9"));
    m_rig->profiles().deleteProfile();
    m_rig->profiles().choose(quickPath("10"));
    m_rig->profiles().deleteProfile();
    m_panel->refresh();
    m_rig->takeLog();
    QTest::keyClick(m_rig->window().windowHandle(), Qt::Key_9, Qt::ControlModifier);
    QCOMPARE(m_rig->takeLog(), QStringList());
}

void ProfilesPanelTest::replacesOnlyWhenToldTo_data()
{
    testColumns<bool>("isYes");
    testRow("yes", true);
    testRow("no", false);
}

void ProfilesPanelTest::replacesOnlyWhenToldTo()
{
    QFETCH(bool, isYes);
    saveQuick("a");
    m_rig->get<QPushButton>("FM")->setChecked(true);
    saveQuick("a");
    auto* box = openDialog<QMessageBox>();
    QVERIFY(box->text().contains("\"a\""));
    QTest::mouseClick(isYes ? box->buttons().first() : box->defaultButton(), Qt::LeftButton);
    QCOMPARE(m_rig->bytesOf(quickPath("a")).contains("<FM>ON</FM>"), isYes);
    QCOMPARE(shown(), QStringList("a"));
}

void ProfilesPanelTest::renames()
{
    saveQuick("b");
    saveQuick("c");
    click("rename_1");
    auto* entry = m_panel->findChild<QLineEdit*>("name_1");
    QVERIFY(entry->hasFocus());
    QCOMPARE(entry->selectedText(), QString("b"));
    QTest::keyClicks(entry, "d");
    QTest::keyClick(entry, Qt::Key_Return);
    QCOMPARE(shown(), QStringList({"c", "d"}));
    QVERIFY(!QFile::exists(quickPath("b")));
    QVERIFY(QFile::exists(quickPath("d")));
    m_rig->takeLog();
    click("quick_2");
    QCOMPARE(m_rig->takeLog().last(), QString("message: Profile applied: d"));
}

void ProfilesPanelTest::leavesTheNameAsItWas()
{
    saveQuick("b");
    click("rename_1");
    auto* entry = m_panel->findChild<QLineEdit*>("name_1");
    QTest::keyClicks(entry, "x");
    QTest::keyClick(entry, Qt::Key_Escape);
    QVERIFY(!entry->isVisible());
    click("rename_1");
    QTest::keyClicks(entry, "x");
    m_rig->get<QLineEdit>("profile_name")->setFocus();
    QVERIFY(!entry->isVisible());
    QVERIFY(m_panel->findChild<QPushButton*>("quick_1")->isVisible());
    QCOMPARE(shown(), QStringList("b"));
    QVERIFY(QFile::exists(quickPath("b")));
}

void ProfilesPanelTest::deletesOnlyWhenToldTo()
{
    saveQuick("a");
    saveQuick("b");
    click("delete_1");
    QTest::keyClick(openDialog<QMessageBox>(), Qt::Key_Escape);
    QCOMPARE(shown(), QStringList({"a", "b"}));
    click("delete_1");
    auto* box = openDialog<QMessageBox>();
    QVERIFY(box->text().contains("\"a\""));
    QTest::mouseClick(box->buttons().first(), Qt::LeftButton);
    QCOMPARE(shown(), QStringList("b"));
    QVERIFY(!QFile::exists(quickPath("a")));
    QCOMPARE(m_rig->takeLog().last(), QString("message: Profile deleted: a"));
}

void ProfilesPanelTest::refusesNames_data()
{
    testColumns<QString, QString>("name", "said");
    const QString characters = "error: A file name can't contain any of the following characters:"
                               "\n/ : * ? \" < > |";
    for (const char* character : {"/", ":", "*", "?", "\"", "<", ">", "|", "\\"})
        testRow(character, QString("a%1b").arg(character), characters);
    testRow("reserved", "Last", "message: This name is reserved: Last");
}

void ProfilesPanelTest::refusesNames()
{
    QFETCH(QString, name);
    QFETCH(QString, said);
    saveQuick(name);
    QCOMPARE(m_rig->takeLog(), QStringList(said));
    QCOMPARE(shown(), QStringList());
    // It can be corrected.
    QCOMPARE(m_rig->get<QLineEdit>("profile_name")->text(), name);
}

void ProfilesPanelTest::followsTheFolder()
{
    saveQuick("b");
    QVERIFY(m_rig->profiles().saveLast());
    QVERIFY(QFile::copy(quickPath("b"), quickPath("copy")));
    // It is listed under the name in its file.
    QTRY_COMPARE(shown(), QStringList({"b", "b"}));
    QFile nameless(quickPath("a"));
    QVERIFY(nameless.open(QIODevice::WriteOnly));
    nameless.write("no profile");
    nameless.close();
    QTRY_COMPARE(shown(), QStringList({"a", "b", "b"}));
    QVERIFY(QFile::remove(quickPath("b")));
    QTRY_COMPARE(shown(), QStringList({"a", "b"}));
    m_rig->takeLog();
    click("quick_1");
    QCOMPARE(m_rig->takeLog(), QStringList("message: The profile is damaged, nothing applied: "
                                           "QUICK_Profile_a.xml"));
    QVERIFY(QDir(m_rig->profiles().folder()).removeRecursively());
    QTRY_COMPARE(shown(), QStringList());
    saveQuick("again");
    QCOMPARE(shown(), QStringList("again"));
    QVERIFY(QFile::remove(quickPath("again")));
    QTRY_COMPARE(shown(), QStringList());
}

void ProfilesPanelTest::listsThousands()
{
    saveQuick("0");
    const QByteArray bytes = m_rig->bytesOf(quickPath("0"));
    for (int i = 1; i < 3000; ++i) {
        QFile copy(quickPath(QString::number(i)));
        QVERIFY(copy.open(QIODevice::WriteOnly) && copy.write(bytes) == bytes.size());
    }
    m_panel->refresh();
    // Three thousand rows of widgets would block the window: a row is made when one comes to it,
    // by the wheel or by Tab.
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

void ProfilesPanelTest::opensAndSavesFiles()
{
    m_rig->get<QPushButton>("FM")->setChecked(true);
    m_rig->get<QPushButton>("AM")->setChecked(true);
    click("save_profile");
    auto* dialog = openDialog<QFileDialog>();
    QCOMPARE(dialog->windowTitle(), QString("Save file"));
    QCOMPARE(dialog->nameFilters(), QStringList("XML File (*.xml)"));
    QCOMPARE(QDir(dialog->directory()), QDir(m_rig->profiles().folder()));
    auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
    const QRegularExpression proposal("^\\d\\d\\.\\d\\d\\.\\d\\d_\\d\\d\\.\\d\\d\\.\\d\\d\\.xml$");
    QVERIFY2(proposal.match(name->text()).hasMatch(), qPrintable(name->text()));
    name->setText("by.hand");
    QTest::keyClick(name, Qt::Key_Return);
    const QString path = m_rig->path("Veltro KLV/by.hand.xml");
    QTRY_VERIFY(QFile::exists(path));
    QVERIFY(m_rig->bytesOf(path).contains("<QUICK_Profile_KLV>by.hand</QUICK_Profile_KLV>"));
    m_rig->get<QPushButton>("FM")->setChecked(false);
    m_rig->get<QPushButton>("AM")->setChecked(false);
    m_rig->takeLog();
    int dialogsInReplay = -1;
    m_rig->inPause = [&] { dialogsInReplay = m_rig->window().findChildren<QFileDialog*>().size(); };

    click("open_profile");
    dialog = openDialog<QFileDialog>();
    QCOMPARE(dialog->windowTitle(), QString("Open file"));
    QCOMPARE(dialog->nameFilters(), QStringList("XML File (*.xml)"));
    name = dialog->findChild<QLineEdit*>("fileNameEdit");
    name->setText("by.hand.xml");
    QTest::keyClick(name, Qt::Key_Return);
    QTRY_VERIFY(m_rig->log.contains("message: Profile applied: by.hand"));
    QVERIFY(m_rig->get<QPushButton>("FM")->isChecked());
    // Otherwise it could be closed while its choice is still being processed.
    QCOMPARE(dialogsInReplay, 0);
    QCOMPARE(shown(), QStringList());

    // The name without its end is asked about too.
    m_rig->get<QPushButton>("FM")->setChecked(false);
    click("save_profile");
    dialog = openDialog<QFileDialog>();
    name = dialog->findChild<QLineEdit*>("fileNameEdit");
    name->setText("by.hand");
    QTest::keyClick(name, Qt::Key_Return);
    auto* box = openDialog<QMessageBox>();
    QVERIFY(m_rig->bytesOf(path).contains("<FM>ON</FM>"));
    QTest::mouseClick(box->buttons().first(), Qt::LeftButton);
    QVERIFY(m_rig->bytesOf(path).contains("<FM>OFF</FM>"));
}

void ProfilesPanelTest::refusesFileNames()
{
    click("save_profile");
    auto* name = openDialog<QFileDialog>()->findChild<QLineEdit*>("fileNameEdit");
    name->setText("what?");
    QTest::keyClick(name, Qt::Key_Return);
    QTRY_COMPARE(m_rig->log.size(), 1);
    QVERIFY(m_rig->log.first().startsWith(
        "error: A file name can't contain any of the following characters:"));
    QCOMPARE(QDir(m_rig->profiles().folder()).entryList(QDir::Files), QStringList());
}

void ProfilesPanelTest::liesInTheUsersDocuments()
{
    const DocumentsFolder documents(m_rig->folder().path());
    QCOMPARE(userFolder(), QDir::toNativeSeparators(documents.path() + "/Veltro KLV"));
    QCOMPARE(madeUserFolder(), userFolder());
    QVERIFY(QFileInfo(userFolder()).isDir());
}

QTEST_MAIN(ProfilesPanelTest)
#include "profiles_panel_test.moc"
