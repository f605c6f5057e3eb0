#pragma once

#include "sweep/list/point_table.h"
#include "sweep/list_panel.h"
#include "tests/support/fields.h"
#include "ui/question.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <functional>

/// A shown list panel, driven by the object names of its controls and by keys.
struct ListBench {
    explicit ListBench(bool isListShown = true)
    {
        panel.resize(panel.width(), 900);
        panel.show();
        panel.activateWindow();
        (void)QTest::qWaitForWindowActive(&panel);
        if (isListShown)
            click("List_is_Checked");
        QObject::connect(&panel, &List::errorMessage,
                         [this](const QString& m) { said << "error: " + m; });
    }

    template <typename Widget>
    Widget& get(const QString& name) const
    {
        auto* widget = panel.findChild<Widget*>(name);
        if (!widget)
            qFatal("no %s", qUtf8Printable(name));
        return *widget;
    }
    void click(const QString& name) const
    {
        QTest::mouseClick(&get<QAbstractButton>(name), Qt::LeftButton);
    }
    QString field(const QString& name) const { return get<QLineEdit>(name).text(); }
    void setLimits()
    {
        fields.limits[Quantity::Frequency] = {9000, 20000000000};
        fields.limits[Quantity::Power] = {-30.0, 20.0};
        fields.limits[Quantity::SweepDwell] = fields.limits[Quantity::ListDwell] = {50, 1000000};
    }

    PointTable& table() const { return panel.table(); }
    /// "frequency,power,dwell" for each row.
    QStringList rows() const
    {
        QStringList rows;
        for (int row = 0; row < table().rowCount(); ++row)
            rows << QStringList{table().text(row, 0), table().text(row, 1), table().text(row, 2)}
                        .join(',');
        return rows;
    }
    /// Replaces all rows, as they stand.
    void setRows(const QStringList& rows) const
    {
        PointRows points;
        for (const QString& row : rows) {
            const QStringList cells = row.split(',');
            points.push_back({cells.value(0), cells.value(1), cells.value(2)});
        }
        table().change({0, table().rowCount(), points}, "set");
        // The table lays itself out when control returns to the event loop.
        QCoreApplication::processEvents();
    }
    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        const QModelIndex index = table().model()->index(row, column);
        table().scrollTo(index);
        QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers,
                          table().visualRect(index).center());
    }
    /// Keys go where the focus is by then: the first one into a cell opens its editor.
    static void type(const QString& text)
    {
        for (const QChar c : text)
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        // A cell's editor commits when control returns to the event loop.
        QCoreApplication::processEvents();
    }
    /// Does something to the next dialog once it is there.
    template <typename Dialog>
    void whenAsked(const std::function<void(Dialog&)>& answer)
    {
        auto* timer = new QTimer(&panel);
        QObject::connect(timer, &QTimer::timeout, &panel, [timer, answer] {
            if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget())) {
                timer->deleteLater();
                answer(*dialog);
            }
        });
        timer->start(1);
    }
    /// Answers the next question.
    void whenAsked(bool isYes)
    {
        whenAsked<Question>([isYes](Question& question) {
            question.findChild<QPushButton*>(isYes ? "yes" : "cancel")->click();
        });
    }
    /// Clicks a button, answers the dialog that it opens, and waits for what comes of it.
    template <typename Dialog>
    void answer(const QString& button, const std::function<void(Dialog&)>& answer)
    {
        bool isAnswered = false;
        whenAsked<Dialog>([&](Dialog& dialog) {
            answer(dialog);
            isAnswered = true;
        });
        click(button);
        QTRY_VERIFY(isAnswered && !QApplication::activeModalWidget());
        // The choice is reported when the dialog has closed.
        QTRY_VERIFY(panel.findChildren<QDialog*>().isEmpty());
        QCoreApplication::processEvents();
    }
    /// Chooses a file by its name, or cancels the dialog.
    void chooseFile(const QString& button, const QString& name, bool isAccepted = true)
    {
        answer<QFileDialog>(button, [&](QFileDialog& dialog) {
            if (!name.isEmpty())
                dialog.findChild<QLineEdit*>("fileNameEdit")->setText(name);
            isAccepted ? static_cast<QDialog&>(dialog).accept() : dialog.reject();
        });
    }

    Fields fields;
    List panel{fields.context};
    QStringList& said = fields.said;
};
