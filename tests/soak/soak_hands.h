#pragma once

#include <QElapsedTimer>
#include <QStringList>

#include <random>

class Demo;
class QWidget;

/// Hands that do anything: clicks, keys and texts on what is to be seen, cables and faults behind
/// it. The same seed asks for the same; what it meets depends on time.
class SoakHands
{
public:
    /// `instrumentFile` is what KLV_DEMO_FILE names.
    SoakHands(unsigned seed, QWidget& window, Demo& demo, const QString& instrumentFile);

    /// One action. Answers what stands in the way first: dialogs, menus, popups.
    void act();
    /// The cable in, what stands in the way answered, nothing half typed. To be called again until
    /// all is still: what is then seen can be compared.
    void rest();
    /// The last actions, oldest first.
    QStringList said() const { return m_said; }

private:
    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    template <typename Item>
    Item any(const QList<Item>& items)
    {
        return items.at(below(items.size()));
    }
    void say(const QString& what);
    void answer(QWidget& window);
    template <typename Button>
    bool click(QWidget& window);
    void type(QWidget& window, const QString& text);
    void press(QWidget& window);
    void disturb();
    void plug(bool isIn);

    std::mt19937 m_random;
    QWidget& m_window;
    Demo& m_demo;
    QString m_instrumentFile;
    QStringList m_said;
    bool m_isPlugged = true;
    QElapsedTimer m_sincePlugged;
};
