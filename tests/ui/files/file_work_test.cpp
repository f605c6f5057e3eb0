#include "ui/files/file_work.h"

#include <QApplication>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

/// Reading and writing that takes long.
class FileWorkTest : public QObject
{
    Q_OBJECT

private slots:
    void showsProgressAndCanBeCancelled()
    {
        check(50, true, false, false);
        check(1200, true, false, true);
        check(20000, true, true, true);
        // Held by the system.
        check(3000, false, true, true);
    }

private:
    void check(int workMs, bool isHeeding, bool isCancelled, bool isShown)
    {
        const auto work = [=](FileProgress* progress) {
            progress->total = workMs;
            while (progress->done < workMs && !(isHeeding && progress->isCancelled)) {
                QThread::msleep(10);
                progress->done += 10;
            }
            return FileOutcome{progress->isCancelled ? FileFault::Cancelled : FileFault::None,
                               "end"};
        };
        QWidget window;
        window.show();
        int mostShown = -1;
        QString called;
        QTimer look;
        connect(&look, &QTimer::timeout, this, [&] {
            const QWidget* dialog = QApplication::activeModalWidget();
            if (!dialog)
                return;
            const auto* bar = dialog->findChild<QProgressBar*>("file_progress");
            called = bar->accessibleName();
            const int value = bar->value();
            mostShown = std::max(mostShown, value);
            if (isCancelled && value > 0)
                QTest::mouseClick(dialog->findChild<QPushButton*>("cancel"), Qt::LeftButton);
        });
        look.start(20);
        const std::optional<FileOutcome> outcome = fileWork<FileOutcome>(&window, "Reading", work);
        QCOMPARE(mostShown > 0, isShown);
        QCOMPARE(called, QString(isShown ? "Reading" : ""));
        QCOMPARE(outcome.has_value(), isHeeding);
        QCOMPARE(!outcome || outcome->fault == FileFault::Cancelled, isCancelled);
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(FileWorkTest)
#include "file_work_test.moc"
