#pragma once

#include <QString>
#include <optional>

class QWidget;

namespace Gui::Setup
{
/// A control of the setup dialog for a setting. Until the user changes it, it shows the last value that the backend
/// reported. The GUI thread.
class SettingField
{
public:
    virtual ~SettingField() = default;

    /// The window has got new values from the backend.
    virtual void follow() = 0;
    virtual bool isChanged() const = 0;
    /// Why the user's value is invalid; empty if it is valid.
    virtual QString findFault() const { return {}; }
    /// The question to ask before the value is applied; empty for none.
    virtual QString getQuestion() const { return {}; }
    /// Posts the changed value to the backend.
    virtual void post() const = 0;

    /// Owned by the dialog.
    virtual QWidget& getControl() const = 0;
};

/// A field of one value.
template <class Value>
class ValueField : public SettingField
{
public:
    void follow() override
    {
        const bool untouched = !isChanged();
        known = getKnown();
        if (untouched) show(*known);
    }
    bool isChanged() const final { return known && getShown() != *known; }

protected:
    virtual Value getKnown() const = 0;
    virtual Value getShown() const = 0;
    virtual void show(const Value& value) = 0;

private:
    std::optional<Value> known;
};
}  // namespace Gui::Setup
