#include "link/library_places.h"
#include "link/visa_library.h"
#include "tests/support/rows.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

/// A library of a plain name is loaded from the places where libraries lie.
class LibraryPlacesTest : public QObject
{
    Q_OBJECT

private slots:
    void loadsFromPlacesOnly_data()
    {
        // What the search path of this test names, among empty and relative entries.
        const QString listed = QFileInfo(KLV_LISTED_FOLDER).absoluteFilePath();
        // Windows' search path; that of Linux is the build's to set.
        const QStringList folders = {".", "lib", QDir::toNativeSeparators(listed)};
        qputenv("PATH", folders.join(QDir::listSeparator()).toLocal8Bit());
        testColumns<QString, QByteArray, bool>("folder", "asked", "isLoaded");
        const QByteArray name = "KlvPlaces";
        testRow("current folder", ".", name, false);
        testRow("relative entry", "lib", name, false);
        testRow("listed", listed, name, true);
        testRow("asked for by its path", ".", "./" + name, true);
    }

    void loadsFromPlacesOnly()
    {
        QFETCH(QString, folder);
        QFETCH(QByteArray, asked);
        QFETCH(bool, isLoaded);
        const QTemporaryDir current;
        const QString before = QDir::currentPath();
        // With the drive, where there is one: the current folder changes.
        const QString library = QFileInfo(KLV_PARTIAL_LIBRARY).absoluteFilePath();
        QVERIFY(QDir::setCurrent(current.path()));
        QVERIFY(QDir().mkpath(folder));
        const QString file = folder + '/' + libraryPlaces("KlvPlaces").fileNames.first();
        QFile::remove(file);
        QVERIFY(QFile::copy(library, file));
        VisaLibrary visa;
        visa.load(asked.constData());
        const bool hasLoaded = visa.unresolvedCount() >= 0;
        visa.reset();
        QFile::remove(file);
        QCOMPARE(QDir::current(), QDir(current.path()));
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(hasLoaded, isLoaded);
    }
};

QTEST_GUILESS_MAIN(LibraryPlacesTest)
#include "library_places_test.moc"
