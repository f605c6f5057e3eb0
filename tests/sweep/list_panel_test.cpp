#include "sweep/list_panel.h"

#include <QPushButton>
#include <QTest>

class ListPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void autoOffStopsARun();
};

void ListPanelTest::autoOffStopsARun()
{
    List panel;
    panel.runSweep().click();
    QVERIFY(panel.isRunning());
    panel.autoOff();
    QVERIFY(!panel.isRunning());
}

QTEST_MAIN(ListPanelTest)
#include "list_panel_test.moc"
