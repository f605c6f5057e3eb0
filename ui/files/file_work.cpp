#include "ui/files/file_work.h"

#include "ui/named.h"
#include "ui/panel_dialog.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace
{
constexpr int silentMs = 500;
constexpr int refreshMs = 100;
/// Between two steps the work checks whether it has been cancelled.
constexpr int lastStepMs = 300;
constexpr int steps = 1000;

QString translated(const char* text)
{
    return QCoreApplication::translate("FileWork", text);
}

class Worker : public QThread
{
public:
    explicit Worker(std::function<void()> work) : m_work(std::move(work)) {}

protected:
    void run() override { m_work(); }

private:
    std::function<void()> m_work;
};

class FileProgressDialog : public PanelDialog
{
public:
    FileProgressDialog(const QString& what, QWidget* window)
        : PanelDialog(translated(QT_TRANSLATE_NOOP("FileWork", "Please wait")), what, window),
          m_bar(named("file_progress", new QProgressBar(this)))
    {
        setObjectName(QStringLiteral("FileProgress"));
        setWindowModality(Qt::ApplicationModal);
        m_bar->setTextVisible(false);
        m_bar->setAccessibleName(what);
        content().addWidget(m_bar);
        const QPushButton* cancel = addButton(
            "cancel", translated(QT_TRANSLATE_NOOP("FileWork", "Cancel")),
            translated(QT_TRANSLATE_NOOP("FileWork", "Cancel; no file is changed (Esc)")));
        connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    }

    void showProgress(const FileProgress& progress)
    {
        const qint64 total = progress.total;
        // Without a total the bar only shows that the work continues.
        m_bar->setMaximum(total > 0 ? steps : 0);
        m_bar->setValue(total > 0 ? static_cast<int>(progress.done * steps / total) : 0);
    }

private:
    QProgressBar* m_bar;
};

/// Until the work is done, it is cancelled, or the program is being ended.
void showUntilOver(Worker& worker, QWidget* window, const QString& what,
                   const FileProgress& progress)
{
    const QPointer<FileProgressDialog> dialog = new FileProgressDialog(what, window);
    QEventLoop loop;
    QObject::connect(&worker, &QThread::finished, &loop, &QEventLoop::quit);
    QObject::connect(dialog, &QDialog::rejected, &loop, &QEventLoop::quit);
    QTimer refresh;
    QObject::connect(&refresh, &QTimer::timeout, dialog, [&] { dialog->showProgress(progress); });
    refresh.start(refreshMs);
    dialog->showProgress(progress);
    dialog->show();
    if (!worker.isFinished())
        loop.exec();
    if (dialog)
        dialog->close();
}
} // namespace

bool waitForFileWork(QWidget* window, const QString& what,
                     const std::shared_ptr<FileProgress>& progress,
                     const std::function<void()>& work)
{
    auto worker = std::make_unique<Worker>(work);
    worker->start();
    if (worker->wait(silentMs))
        return true;
    showUntilOver(*worker, window, what, *progress);
    progress->isCancelled = !worker->isFinished();
    if (worker->wait(lastStepMs))
        return true;
    // The system call does not return: nothing depends on its end any more.
    Worker* const abandoned = worker.release();
    QObject::connect(abandoned, &QThread::finished, abandoned, &QObject::deleteLater);
    if (abandoned->isFinished())
        abandoned->deleteLater();
    return false;
}

QString readingWords(const QString& path)
{
    return translated(QT_TRANSLATE_NOOP("FileWork", "Reading %1")).arg(QFileInfo(path).fileName());
}

FileOutcome writeBeside(QWidget* window, const QString& path, const QByteArray& bytes)
{
    const QString words = translated(QT_TRANSLATE_NOOP("FileWork", "Saving %1"));
    const auto work = [path, bytes](FileProgress* progress) {
        return writeWholeFile(path, bytes, progress);
    };
    return fileWork<FileOutcome>(window, words.arg(QFileInfo(path).fileName()), work)
        .value_or(FileOutcome{FileFault::Cancelled});
}
