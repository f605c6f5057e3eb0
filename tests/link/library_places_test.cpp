#include "link/library_places.h"
#include "link/visa_library.h"
#include "tests/support/rows.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace
{
// With the drive, where there is one: the current folder changes.
const QString libraryFile = QFileInfo(KLV_PARTIAL_LIBRARY).absoluteFilePath();
/// What the search path of this test names, among empty and relative entries.
const QString listedFolder = QFileInfo(KLV_LISTED_FOLDER).absoluteFilePath();
} // namespace

/// A library of a plain name is loaded from the places where libraries lie.
class LibraryPlacesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void loadsFromPlacesOnly_data();
    void loadsFromPlacesOnly();
};

void LibraryPlacesTest::initTestCase()
{
    // Windows' search path; that of Linux is the build's to set.
    const QStringList folders = {".", "lib", QDir::toNativeSeparators(listedFolder)};
    qputenv("PATH", folders.join(QDir::listSeparator()).toLocal8Bit());
}

void LibraryPlacesTest::loadsFromPlacesOnly_data()
{
    testColumns<QString, QString, bool>("folder", "asked", "isLoaded");
    testRow("current folder", ".", "KlvPlaces", false);
    testRow("relative entry", "lib", "KlvPlaces", false);
    testRow("listed", listedFolder, "KlvPlaces", true);
    testRow("asked for by its path", ".", "./KlvPlaces", true);
}

void LibraryPlacesTest::loadsFromPlacesOnly()
{
    QFETCH(QString, folder);
    QFETCH(QString, asked);
    QFETCH(bool, isLoaded);
    const QTemporaryDir current;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(current.path()));
    QVERIFY(QDir().mkpath(folder));
    const QString file = folder + '/' + libraryPlaces("KlvPlaces").fileNames.first();
    QFile::remove(file);
    QVERIFY(QFile::copy(libraryFile, file));
    VisaLibrary visa;
    visa.load(asked.toLocal8Bit().constData());
    const bool hasLoaded = visa.unresolvedCount() >= 0;
    visa.reset();
    QFile::remove(file);
    QCOMPARE(QDir::current(), QDir(current.path()));
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(hasLoaded, isLoaded);
}

QTEST_GUILESS_MAIN(LibraryPlacesTest)
#include "library_places_test.moc"
