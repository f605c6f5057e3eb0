#include "service/about_box.h"

#include "service/open_document.h"
#include "ui/describe.h"
#include "ui/instrument_text.h"
#include "ui/named.h"
#include "ui/window_chrome.h"

#include <QCoreApplication>
#include <QDate>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVariant>

#include <iterator>

namespace
{
constexpr int margin = 24;
constexpr int spacing = 8;
constexpr char supportAddress[] = "support@veltro.example";
constexpr char softwareLink[] = "https://veltro.example/klv/software";
constexpr char firmwareLink[] = "https://veltro.example/klv/firmware";
const QString licenceFile = QStringLiteral("/license.txt");

QString anchor(const QString& target, const QString& text)
{
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(target, text);
}

/// A label whose links are stops of Tab and back. A plain one cannot be left backwards: it starts
/// again at its last link.
class LinkLabel : public QLabel
{
public:
    explicit LinkLabel(QWidget* parent) : QLabel(parent)
    {
        setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
        setProperty("links", true);
        // Its ring would push the text in.
        setIndent(0);
    }

protected:
    bool focusNextPrevChild(bool next) override
    {
        const int before = selectionStart();
        const bool isMoved = QLabel::focusNextPrevChild(next);
        const bool isAround = !next && hasFocus() && before >= 0 && selectionStart() >= before;
        // NOLINTNEXTLINE(bugprone-parent-virtual-call): QLabel's own is what goes around.
        return isAround ? QWidget::focusNextPrevChild(next) : isMoved;
    }
};
} // namespace

Form::Form(QWidget* parent) : QDialog(parent, Qt::Tool)
{
    setObjectName(QStringLiteral("Form"));
    setWindowModality(Qt::ApplicationModal);
    new WindowChrome(this);

    auto* frame = named("frame", new QFrame(this));
    auto* header = named("header", new QLabel(frame));
    header->setPixmap(QPixmap(QStringLiteral(":/images/header.png")));
    m_title = named("title", new QLabel(frame));
    m_close = named("pushButton", new QPushButton(frame));
    m_calibrationCaption = named("lbl_Calibrate", new QLabel(frame));
    m_calibrationDate = named("lbl_CalibrateData", new QLabel(frame));
    m_update = named("butUpdate", new QPushButton(frame));

    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(frame);
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(spacing);
    auto* top = new QHBoxLayout;
    top->addWidget(header);
    top->addWidget(m_title, 1);
    column->addLayout(top);
    for (QLabel** line : {&m_product, &m_softwareRevision, &m_toolkit, &m_libraryLine,
                          &m_firmwareLine, &m_serialLine}) {
        *line = new QLabel(frame);
        column->addWidget(*line);
    }
    m_libraryLine->setObjectName(QStringLiteral("lbl_Library"));
    m_libraryLine->setTextFormat(Qt::PlainText);
    auto* calibration = new QHBoxLayout;
    calibration->addWidget(m_calibrationCaption);
    calibration->addWidget(m_calibrationDate);
    calibration->addStretch(1);
    column->addLayout(calibration);
    for (QLabel** line : {&m_support, &m_updateLinks, &m_license}) {
        *line = new LinkLabel(frame);
        column->addWidget(*line);
    }
    m_support->setOpenExternalLinks(true);
    m_updateLinks->setOpenExternalLinks(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_update);
    buttons->addWidget(m_close);
    column->addSpacing(spacing);
    column->addLayout(buttons);
    m_close->setDefault(true);
    QWidget* const tabOrder[] = {m_support, m_updateLinks, m_license, m_update, m_close};
    for (std::size_t i = 1; i < std::size(tabOrder); ++i)
        setTabOrder(tabOrder[i - 1], tabOrder[i]);

    connect(m_close, &QPushButton::clicked, this, &Form::on_pushButton_clicked);
    connect(m_update, &QPushButton::clicked, this, &Form::requestUpdate);
    connect(m_license, &QLabel::linkActivated, this, &Form::openLicense);
    retranslate();
    empty();
}

void Form::setSerial(const QString& serial)
{
    m_serial = serial;
    m_serialLine->setText(tr("Serial: ") + instrumentText(serial));
}

void Form::setFirmware(const QString& version)
{
    m_firmware = version;
    m_firmwareLine->setText(tr("Firmware revision:") + instrumentText(version));
}

void Form::setCalibrationDue(const QString& date)
{
    // A null text would leave the background of the rich-text label behind.
    m_calibrationDate->setText(date.isEmpty() ? QStringLiteral("") : instrumentText(date));
    const QDate due = QDate::fromString(date, QStringLiteral("dd.MM.yyyy"));
    const bool isCurrent = date.isEmpty() || (due.isValid() && due > QDate::currentDate());
    const QString style = isCurrent ? QStringLiteral("QLabel { color: black; }")
                                    : QStringLiteral("QLabel { color: red; }");
    // Setting a style again costs as much as changing it.
    if (m_calibrationDate->styleSheet() != style)
        m_calibrationDate->setStyleSheet(style);
}

void Form::empty()
{
    setSerial(QString());
    setFirmware(QString());
    setCalibrationDue(QString());
}

void Form::openLicense(const QString&)
{
    openDocument(QCoreApplication::applicationDirPath() + licenceFile);
}

void Form::on_pushButton_clicked()
{
    close();
}

void Form::showLibrary()
{
    const StatusWords words = m_libraryWords ? m_libraryWords() : StatusWords();
    QString text = words ? words() : QString();
    // It may have been made for the middle of a sentence.
    m_libraryLine->setText(text.replace(0, 1, text.left(1).toUpper()));
}

void Form::showAbout()
{
    showLibrary();
    show();
    raise();
    activateWindow();
}

void Form::requestUpdate()
{
    emit updateFirmware();
    close();
}

void Form::retranslate()
{
    setWindowTitle(tr("About"));
    m_title->setText(tr("About"));
    m_product->setText(tr("KLV Client"));
    m_softwareRevision->setText(tr("Software revision: 2.7.4"));
    m_toolkit->setText(tr("This product uses  QT v 5.9.3"));
    m_calibrationCaption->setText(tr("Calibration due date:"));
    m_close->setText(tr("Close"));
    m_update->setText(tr("Update"));
    describe(m_close, m_close->text(), tr("Close this box (Escape)"));
    describe(m_update, m_update->text(), tr("Update the firmware of the connected instrument"));
    describe(m_support, tr("Support by mail"), tr("Write a mail to the maker's support"));
    describe(m_updateLinks, tr("Updates on the web"),
             tr("Open the maker's pages of the program and of the firmware"));
    describe(m_license, tr("License"), tr("Open the licence text"));
    const QString support = QLatin1String(supportAddress);
    m_support->setText(tr("Support: ") + anchor(QStringLiteral("mailto:") + support, support));
    m_updateLinks->setText(tr("Update: ") + anchor(QLatin1String(softwareLink), tr("software")) +
                           QLatin1Char(' ') + anchor(QLatin1String(firmwareLink), tr("firmware")));
    m_license->setText(anchor(QStringLiteral("license"), tr("License")));
    showLibrary();
    setSerial(m_serial);
    setFirmware(m_firmware);
}

void Form::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}
