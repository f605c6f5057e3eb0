#pragma once

#include "connection/hot_plug_watch.h"

/// A watch that forwards to another one, which can be replaced while the program runs; its
/// listeners stay connected. Not usable before the first one is set.
class SwitchedPlugWatch : public HotPlugWatch
{
    Q_OBJECT

public:
    /// Replaces the current watch by `watch`, which is never null.
    void use(std::unique_ptr<HotPlugWatch> watch)
    {
        m_watch = std::move(watch);
        connect(m_watch.get(), &HotPlugWatch::devicesChanged, this, &HotPlugWatch::devicesChanged);
    }

    QStringList presentSerials() const override { return m_watch->presentSerials(); }
    void noteLoss() override { m_watch->noteLoss(); }

private:
    std::unique_ptr<HotPlugWatch> m_watch;
};
