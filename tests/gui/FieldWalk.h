#pragma once

#include <functional>

#include "gui/forms/FormField.h"
#include "tests/gui/Hands.h"

using FieldEdit = Gui::Forms::FormField::Edit;
using FieldList = std::vector<Gui::Forms::FormField>;

/// Sets the fields of a function or a translation through their controls.
struct FieldWalk {
    using FormField = Gui::Forms::FormField;

    /// What a form shows, without what has no effect now.
    static std::string valuesOf(const FieldList& fields)
    {
        std::string all;
        for (const auto& field : fields)
            if (!field.isUsed || field.isUsed()) all += (field.name + '=' + field.get() + ' ').toStdString();
        return all;
    }

    /// The control of a field.
    QLineEdit& control(const QString& name)
    {
        for (auto* line : around->findChildren<QLineEdit*>())
            if (line->accessibleName() == name && line->isVisible()) return *line;
        throw std::runtime_error("no " + name.toStdString());
    }
    void type(const QString& name, const QString& text)
    {
        auto& line = control(name);
        line.setFocus();
        Hands::replaceText(line, text);
        QTest::keyClick(&line, Qt::Key_Return);
    }

    /// Sets the fields to all that they take; each time a copy by way of a file is the same.
    void walk(std::string_view binding, const FieldList& fields, const std::function<std::string()>& valuesOfCopy)
    {
        const auto expect = [&](const FormField& field, const QString& value) {
            ++set;
            EXPECT_EQ(field.get(), value) << binding << field.name.toStdString();
            EXPECT_EQ(valuesOfCopy(), valuesOf(fields)) << binding;
        };
        const std::function<void(const FormField&)> walkField = [&](const FormField& field) {
            if (field.edit == FieldEdit::text) {
                type(field.name, "Mine & yours");
                return expect(field, "Mine & yours");
            }
            if (field.edit != FieldEdit::list) return walkNumber(field, expect);
            auto& list = control(field.name);
            QTest::keyClick(&list, Qt::Key_Down);  // from one that is missing
            for (std::size_t i = 0; i < field.choices.size(); ++i) QTest::keyClick(&list, Qt::Key_Up);
            for (const auto& choice : field.choices) {
                expect(field, choice.text);
                for (const FormField& other : fields)  // those that this choice brings into use
                    if (other.isUsed && other.isUsed() && other.name != field.name) walkField(other);
                QTest::keyClick(&list, Qt::Key_Down);
            }
        };
        for (const FormField& field : fields)
            if (!field.isUsed) walkField(field);
    }

    const QWidget* around = nullptr;  // the controls
    int set = 0;

private:
    void walkNumber(const FormField& field, const auto& expect)
    {
        const bool isNote = field.edit == FieldEdit::note;
        const auto shown = [&](int number) {
            return isNote ? QString(number == 0 ? "C-1" : "G9") : QString::number(number);
        };
        const QString lowest = shown(std::max(field.lowest, field.edit == FieldEdit::change ? 0 : field.lowest));
        type(field.name, lowest);
        expect(field, lowest);
        type(field.name, QString::number(field.highest + 1));
        expect(field, shown(field.highest));
        EXPECT_NE(control(field.name).accessibleDescription(), "") << "it says why";
        type(field.name, "what");
        expect(field, shown(field.highest));
        if (field.edit == FieldEdit::change) {
            type(field.name, "+5");
            expect(field, "+5");
        }
        if (field.mayBeBlank || field.edit == FieldEdit::change) {
            type(field.name, "");
            expect(field, "");
        }
    }
};
