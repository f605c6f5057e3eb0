#include "app/number_dialog.h"

#include "numbers/number_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace
{
constexpr int fieldWidth = 116;
} // namespace

NumberDialog::NumberDialog(const Words& words, QWidget* parent)
    : PanelDialog(words.title, words.text, parent), m_words(words)
{
}

void NumberDialog::ask(QLineEdit& field, const std::function<bool(const QString& text)>& isValid)
{
    field.setFixedWidth(fieldWidth);
    field.setAlignment(Qt::AlignRight);
    auto* line = new QHBoxLayout;
    line->addWidget(&field);
    line->addWidget(new QLabel(m_words.unit, this));
    line->addStretch(1);
    content().addLayout(line);

    QPushButton* take = addButton(qPrintable(m_words.takeName), tr("OK"), m_words.takeTip);
    QPushButton* cancel = addButton("cancel", tr("Cancel"), tr("Leave it as it is (Esc)"));
    take->setDefault(true);
    connect(take, &QPushButton::clicked, this, [this, &field] {
        const QString text = withoutBlanks(field.text());
        accept();
        emit chosen(text);
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(&field, &QLineEdit::textChanged, take, [take, isValid](const QString& text) {
        take->setEnabled(text.isEmpty() || isValid(withoutBlanks(text)));
    });
    field.setFocus();
    field.selectAll();
}
