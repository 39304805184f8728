#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

class QBoxLayout;
class QListWidget;
class QStackedWidget;

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Setup
{
class PortListField;
class SettingField;

/// Every setting that is the user's, a field each, on a few pages beside the list of their titles. The GUI thread.
class SetupPages final : public QWidget
{
public:
    explicit SetupPages(OrvGuiIF& owner);
    ~SetupPages() override;

    /// Another page came to the front; what it is about.
    std::function<void(const QString& help)> onPage;

    /// The window was told something: what the user has not touched follows.
    void follow();

    /// What the user made something else, in the order of the pages.
    std::vector<const SettingField*> findChanged() const;
    /// The ports that would play into themselves, on the side that the user changed; null if none would.
    const SettingField* findLoopback() const;

    void goTo(const SettingField& field);

private:
    struct Page {
        QString title;
        QString help;
    };

    void makePages();
    QBoxLayout& addPage(const Page& page);
    template <class Field, class... Arguments>
    Field& add(Arguments&&... arguments);
    void turnTo(int row);

    OrvGuiIF& gui;
    QListWidget* titles;  // these belong to the widget, as Qt has it
    QStackedWidget* pages;
    std::vector<std::unique_ptr<SettingField>> fields;
    PortListField* inputs = nullptr;
    PortListField* outputs = nullptr;
};
}  // namespace Gui::Setup
