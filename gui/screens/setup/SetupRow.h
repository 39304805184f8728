#pragma once

#include <QBoxLayout>
#include <QLabel>

namespace Gui::Setup
{
/// A row of a page: a label, a control, and the texts before and after it.
class SetupRow
{
public:
    static constexpr QSize LIST_ROW{0, 21};  ///< the size of a row of a list
    static constexpr int LABEL_WIDTH = 120;  ///< logical pixels; it aligns the controls in a column

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
    void addAfter(const QString& words) { add(line->count() - 1, words); }

private:
    void add(int place, const QString& words)
    {
        if (!words.isEmpty()) line->insertWidget(place, new QLabel(words));
    }

    QHBoxLayout* line;
};
}  // namespace Gui::Setup
