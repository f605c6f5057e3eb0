#include "tests/fuzz/fuzz.h"

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
    int count = 0;
    QApplication application{count, nullptr};
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

    template <typename Widget>
    static Widget& add(QWidget& panel, const char* name)
    {
        auto* widget = new Widget(&panel);
        widget->setObjectName(QLatin1String(name));
        return *widget;
    }

    void fill(QWidget& panel)
    {
        add<QPushButton>(panel, "AM").setCheckable(true);
        add<QLineEdit>(panel, "FREQ");
        add<QComboBox>(panel, "unit").addItems({QStringLiteral("1"), QStringLiteral("2")});
        store.addPanel(&panel);
    }

    ProfileFile read(const QByteArray& bytes) const
    {
        file.set(bytes);
        return readProfile(file.path, store);
    }
};

} // namespace

/// A profile file of any bytes: read and replayed or refused; a profile that is written or renamed
/// can be read.
void run(Bytes bytes)
{
    static Rig& rig = *new Rig;
    const QByteArray input = QByteArray::fromStdString(bytes.rest());
    const ProfileFile file = rig.read(input);
    const QString name = readProfileName(rig.file.path, rig.store);
    PROMISE(name == name.simplified());
    if (file.fault != ProfileFault::None)
        return;
    rig.replay.run(file.entries, false);
    const auto present = [](const QLineEdit& field) { return field.text(); };
    PROMISE(rig.read(profileDocument(rig.store, file.name, present)).fault == ProfileFault::None);

    const QByteArray document = renamedDocument(input, rig.store, QStringLiteral("new"));
    if (document.isEmpty())
        return;
    const ProfileFile renamed = rig.read(document);
    PROMISE(renamed.fault == ProfileFault::None && renamed.name == QLatin1String("new"));
}
