#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

class QBoxLayout;
class QListWidget;
class QStackedWidget;

namespace Backend
{
struct HostOverrides;
}

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Setup
{
class PortListField;
class SettingField;

/// The fields of all settings of the user, on pages beside the list of their titles. The GUI thread.
class SetupPages final : public QWidget
{
public:
    explicit SetupPages(OrvGuiIF& owner);
    ~SetupPages() override;

    /// Another page was chosen; gets its help text.
    std::function<void(const QString& help)> onPage;

    /// The window has got new values from the backend: fields that the user has not changed show them.
    void follow();

    /// The fields that the user has changed, in the order of the pages.
    std::vector<const SettingField*> findChanged() const;
    /// The port list with a loopback that the user has enabled in both directions, on the side that was changed; null
    /// if there is none.
    const SettingField* findLoopback() const;

    void goTo(const SettingField& field);

private:
    struct Page {
        QString title;
        QString help;
    };

    void makePages();
    void makeHostPages(const Backend::HostOverrides& overrides);
    QBoxLayout& addPage(const Page& page);
    template <class Field, class... Arguments>
    Field& add(Arguments&&... arguments);
    void turnTo(int row);

    OrvGuiIF& gui;
    QListWidget* titles;  // owned by their Qt parents
    QStackedWidget* pages;
    std::vector<std::unique_ptr<SettingField>> fields;
    PortListField* inputs = nullptr;
    PortListField* outputs = nullptr;
};
}  // namespace Gui::Setup
