#pragma once

#include "connection/hot_plug_watch.h"

/// A watch in whose place another one can be put while the program runs; its listeners stay. Of no
/// use before the first one is put there.
class SwitchedPlugWatch : public HotPlugWatch
{
    Q_OBJECT

public:
    /// Puts `watch`, which is never null, in the place of the one before.
    void use(std::unique_ptr<HotPlugWatch> watch)
    {
        m_watch = std::move(watch);
        connect(m_watch.get(), &HotPlugWatch::devicesChanged, this, &HotPlugWatch::devicesChanged);
    }

    QStringList presentSerials(bool firstOnly) const override
    {
        return m_watch->presentSerials(firstOnly);
    }
    void noteLoss() override { m_watch->noteLoss(); }

private:
    std::unique_ptr<HotPlugWatch> m_watch;
};
