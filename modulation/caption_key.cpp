#include "modulation/caption_key.h"

#include <QStyleOptionButton>
#include <QStylePainter>

void CaptionKey::setWord(const QString& word)
{
    m_word = word;
    update();
}

void CaptionKey::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    if (!m_word.isEmpty())
        option.text = m_word;
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}
