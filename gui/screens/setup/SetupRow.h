#pragma once

#include <QBoxLayout>
#include <QLabel>

namespace Gui::Setup
{
/// A row of a page: a label, a control, and words around it.
class SetupRow
{
public:
    static constexpr QSize LIST_ROW{0, 21};  ///< of the rows of a list
    static constexpr int LABEL_WIDTH = 120;  ///< logical pixels; one behind the other, the controls stand in a column

    SetupRow(QBoxLayout& page, const QString& label, QWidget& control) : line(new QHBoxLayout)
    {
        auto* text = new QLabel(label);
        text->setMinimumWidth(LABEL_WIDTH);
        text->setBuddy(&control);
        line->addWidget(text);
        line->addWidget(&control);
        line->addStretch();
        page.addLayout(line);
    }

    void addBefore(const QString& words) { add(1, words); }
    void addBehind(const QString& words) { add(line->count() - 1, words); }

private:
    void add(int place, const QString& words)
    {
        if (!words.isEmpty()) line->insertWidget(place, new QLabel(words));
    }

    QHBoxLayout* line;
};
}  // namespace Gui::Setup
