#include "link/library_places.h"
#include "link/visa_library.h"
#include "tests/support/rows.h"

#include <QtTest>

/// A library of a plain name is loaded from the places where libraries lie.
class LibraryPlacesTest : public QObject
{
    Q_OBJECT

private slots:
    void loadsFromPlacesOnly()
    {
        const auto row =
            namedRows([](const QString& folder, const QByteArray& asked, bool isLoaded) {
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
            });
        // What the search path of this test names, among empty and relative entries.
        const QString listed = QFileInfo(KLV_LISTED_FOLDER).absoluteFilePath();
        // Windows' search path; that of Linux is the build's to set.
        const QStringList folders = {".", "lib", QDir::toNativeSeparators(listed)};
        qputenv("PATH", folders.join(QDir::listSeparator()).toLocal8Bit());
        const QByteArray name = "KlvPlaces";
        row("current folder", ".", name, false);
        row("relative entry", "lib", name, false);
        row("listed", listed, name, true);
        row("asked for by its path", ".", "./" + name, true);
    }
};

QTEST_GUILESS_MAIN(LibraryPlacesTest)
#include "library_places_test.moc"
