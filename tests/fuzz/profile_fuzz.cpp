#include "tests/fuzz/fuzz.h"

#include "profiles/profile_folder.h"
#include "profiles/profile_reader.h"
#include "profiles/profile_replay.h"
#include "profiles/profile_store.h"
#include "profiles/profile_writer.h"
#include "tests/fuzz/memory_file.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

namespace
{

struct Rig {
    int count = 1;
    char name[8] = "fuzz";
    char* arguments[2] = {name, nullptr};
    QApplication application{count, arguments};
    QWidget window;
    QWidget modulation{&window};
    QString variable;
    ProfileStore store{QStringLiteral("KLV")};
    ProfileReplay replay{store, [](int) { return true; }};
    MemoryFile file;

    Rig()
    {
        window.setObjectName(QStringLiteral("MainWindow"));
        modulation.setObjectName(QStringLiteral("Modulat"));
        fill(window);
        fill(modulation);
        for (const auto type : {SharedVariable::Type::Text, SharedVariable::Type::Double,
                                SharedVariable::Type::Int32, SharedVariable::Type::Int64})
            store.addVariable({QStringLiteral("v%1").arg(static_cast<int>(type)), type,
                               [this] { return QVariant(variable); },
                               [this](const QVariant& value) { variable = value.toString(); }});
        store.waitAfter({QStringLiteral("AM")}, 1);
    }

    void fill(QWidget& panel)
    {
        auto* button = new QPushButton(&panel);
        button->setObjectName(QStringLiteral("AM"));
        button->setCheckable(true);
        auto* field = new QLineEdit(&panel);
        field->setObjectName(QStringLiteral("FREQ"));
        auto* box = new QComboBox(&panel);
        box->setObjectName(QStringLiteral("unit"));
        box->addItems({QStringLiteral("1"), QStringLiteral("2")});
        store.addPanel(&panel);
    }

    ProfileFile read(const QByteArray& bytes) const
    {
        file.set(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        return readProfile(file.path, store);
    }
};

} // namespace

/// A profile file of any bytes: read and replayed or refused; a profile that is written or renamed
/// can be read.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Rig& rig = *new Rig;
    const auto bytes = QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const ProfileFile file = rig.read(bytes);
    const QString name = readProfileName(rig.file.path, rig.store);
    PROMISE(name == name.simplified());
    if (file.fault != ProfileFault::None)
        return 0;
    rig.replay.run(file.entries, false);
    const auto present = [](const QLineEdit& field) { return field.text(); };
    PROMISE(rig.read(profileDocument(rig.store, file.name, present)).fault == ProfileFault::None);

    const QByteArray document = renamedDocument(bytes, rig.store, QStringLiteral("new"));
    if (document.isEmpty())
        return 0;
    const ProfileFile renamed = rig.read(document);
    PROMISE(renamed.fault == ProfileFault::None && renamed.name == QLatin1String("new"));
    return 0;
}
