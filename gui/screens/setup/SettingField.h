#pragma once

#include <QString>
#include <optional>

class QWidget;

namespace Gui::Setup
{
/// A control of the setup dialog and the setting it stands for. Until the user makes it something else, it shows what
/// the window was told last. The GUI thread.
class SettingField
{
public:
    virtual ~SettingField() = default;

    /// The window was told something.
    virtual void follow() = 0;
    virtual bool isChanged() const = 0;
    /// Why what the user made of it cannot be; empty if it can.
    virtual QString findFault() const { return {}; }
    /// What is to be asked before it becomes so; empty for nothing.
    virtual QString getQuestion() const { return {}; }
    /// Tells the backend what was changed.
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
        told = getTold();
        if (untouched) show(*told);
    }
    bool isChanged() const final { return told && getShown() != *told; }

protected:
    virtual Value getTold() const = 0;
    virtual Value getShown() const = 0;
    virtual void show(const Value& value) = 0;

private:
    std::optional<Value> told;
};
}  // namespace Gui::Setup
