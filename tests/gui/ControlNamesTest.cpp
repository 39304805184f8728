#include <QAccessible>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>

#include "gui/framework/Operation.h"
#include "gui/framework/Properties.h"
#include "gui/screens/setup/SetupDialog.h"
#include "tests/gui/DialogHands.h"

namespace
{
using Role = QAccessible::Role;

/// What has no name of its own: what names another, what shows a part of another.
bool needsNoName(Role role)
{
    constexpr Role ROLES[] = {Role::StaticText, Role::ScrollBar, Role::Splitter,  Role::Grip,     Role::Cell,
                              Role::ListItem,   Role::TreeItem,  Role::Client,    Role::Pane,     Role::LayeredPane,
                              Role::Border,     Role::Grouping,  Role::PopupMenu, Role::Separator};
    return std::ranges::find(ROLES, role) != std::end(ROLES);
}

void addNameless(QAccessibleInterface& part, const std::string& path, std::string& all)
{
    if (part.state().invisible) return;
    const QObject* object = part.object();
    const std::string here =
        path + "/" + (object != nullptr ? object->metaObject()->className() : std::to_string(int(part.role())));
    if (!needsNoName(part.role()) && part.text(QAccessible::Name).trimmed().isEmpty())
        all += here + (object != nullptr ? " " + object->objectName().toStdString() : "") + "\n";
    if (part.role() == Role::Table || part.role() == Role::Tree || part.role() == Role::List) return;  // of items
    for (int child = 0; child < part.childCount(); ++child)
        if (auto* inner = part.child(child)) addNameless(*inner, here, all);
}

/// What is wrong with the controls that are seen, a line each: no help, or a text that is cut off.
std::string unhelpfulOrCutOff(const QWidget& window)
{
    std::string all;
    for (const auto* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible()) continue;
        const QString text = control->property("text").toString();
        const auto* label = qobject_cast<const QLabel*>(control);
        const bool isPlainLabel = label != nullptr && !label->wordWrap();
        const bool isButton = qobject_cast<const QAbstractButton*>(control) != nullptr;
        const int needed = control->fontMetrics().horizontalAdvance(text) + (isButton ? 4 : 0);
        const std::string name = (control->accessibleName() + " '" + text + "'").toStdString();
        if ((isPlainLabel || isButton) && control->width() < needed) all += name + " is cut off\n";
        if (control->focusPolicy() == Qt::NoFocus) continue;
        if (control->accessibleDescription().isEmpty()) all += name + " has no description\n";
        if (!control->property(Gui::Property::HELP).isValid()) all += name + " has no help\n";
    }
    return all;
}

struct ControlNames : DialogHands {
    /// What has no name in the dialog of that title, a line each.
    std::string nameless(const QString& title)
    {
        std::string all;
        addNameless(*QAccessible::queryAccessibleInterface(&dialog(title)), "", all);
        return all;
    }
    void leave(const QString& title)
    {
        QTest::keyClick(&dialog(title), Qt::Key_Escape);
        settle();
    }
};
}  // namespace

TEST_F(ControlNames, OfTheSystemPanelHaveHelpAndRoomForTheirTexts)
{
    for (auto* candidate : surroundings.findChildren<QWidget*>()) {
        if (candidate->focusPolicy() == Qt::NoFocus) continue;
        const auto* accessible = QAccessible::queryAccessibleInterface(candidate);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << candidate->metaObject()->className();
    }
    EXPECT_EQ(unhelpfulOrCutOff(*control("Tempo").parentWidget()), "");
}

TEST_F(ControlNames, OfTheSetupHaveHelpAndRoomForTheirTexts)
{
    click("Setup");
    auto& setup = *surroundings.findChild<Gui::Setup::SetupDialog*>();
    auto& titles = control<QListWidget>("Pages");
    for (int page = 0; page < titles.count(); ++page) {
        titles.setCurrentRow(page);
        QTest::qWait(1);
        EXPECT_EQ(nameless("Setup") + unhelpfulOrCutOff(setup), "") << page;
        for (const auto* helped : setup.findChildren<QWidget*>()) {
            auto& line = *setup.findChild<QLabel*>("help");
            line.setText(helped->property(Gui::Property::HELP).toString());
            EXPECT_LE(line.heightForWidth(line.width()), line.height()) << line.text().toStdString();
        }
    }
    EXPECT_LE(titles.sizeHintForColumn(0), titles.viewport()->width());
}

TEST_F(ControlNames, OfFileDialogsAreAllThere)
{
    click("Load");
    EXPECT_EQ(nameless("Load"), "");
    leave("Load");
    click("Save");
    EXPECT_EQ(nameless("Save"), "");
    lineIn("Save").setText("Other");
    pressIn("Save", "Save");
    EXPECT_EQ(nameless("Confirm Overwrite"), "");
    answer(Answer::No);
    for (const auto& [target, title] :
         {std::pair("In another bank...", "Save To Bank"), std::pair("As a program file...", "Save To Program File")}) {
        buttonIn<QRadioButton>(dialog("Save"), target).setChecked(true);
        pressIn("Save", "Save");
        EXPECT_EQ(nameless(title), "");
        leave(title);
    }
    leave("Save");
    openFileMenu("Change Bank Size...");
    EXPECT_EQ(nameless("Change Bank Size"), "");
    leave("Change Bank Size");
    openFileMenu("Import Version 2 File...");
    EXPECT_EQ(nameless("Select Version 2 File To Import"), "");
    folder.write("old.pst", "key\n\nK\n");
    chooseFile("Select Version 2 File To Import", (folder / "old.pst").string());
    EXPECT_EQ(nameless("Enter Preset Name"), "");
    leave("Enter Preset Name");
    openFileMenu("Set As Default Bank...");
    EXPECT_EQ(nameless("Default Bank"), "");
    answer(Answer::No);
    Gui::run(*control("Playing keyboard").parentWidget(),
             {.title = "Saving...", .post = [](const auto&) {}, .failure = {}});
    EXPECT_EQ(nameless("Saving..."), "");
}

TEST_F(ControlNames, OfPresetDialogsAreAllThere)
{
    gui->showScreen(Backend::Screen::computerInput, true);
    orv->getComputerInputMessageManager().postSavePreset("Organ", {});
    settle();
    click("Preset of the keys: save and edit");
    choose("Edit Presets...");
    EXPECT_EQ(nameless("Presets"), "");
    pressIn("Presets", "Add");
    EXPECT_EQ(nameless("Add Preset"), "");
    leave("Add Preset");
    dialog("Presets").findChild<QListWidget*>()->setCurrentRow(0);
    pressIn("Presets", "Edit");
    EXPECT_EQ(nameless("Edit Preset Name"), "");
    leave("Edit Preset Name");
    pressIn("Presets", "Delete");
    EXPECT_EQ(nameless("Delete Preset"), "");
}
