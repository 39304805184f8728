#include <QClipboard>

#include "backend/messages/LayerMessageManager.h"
#include "gui/forms/LayerRecords.h"
#include "gui/forms/RecordEditor.h"
#include "gui/forms/RecordForm.h"
#include "gui/forms/RecordList.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/EditPoster.h"
#include "tests/core/EditStage.h"
#include "tests/gui/GuiStage.h"

using namespace Backend;
using namespace Gui::Forms;

/// A list of the layers of a backend with their settings beneath it. The layers are "1", "2" and "3", which are their
/// transpositions.
struct SelectedRecords : GuiStage, testing::Test {
    SelectedRecords()
    {
        list = &show(*new RecordList(editor, &window));
        form = new RecordForm(*this, editor, &window);
        poster.setProgram(backend.orv->getProgram().number);
        Layers::LayerList all;
        Layers::Layer layer;
        for (const int transpose : {1, 2, 3}) {
            layer.transpose = {.value = transpose};
            all.add(layer);
        }
        backend.orv->getLayerMessageManager().postSetLayers(all, true);
        pump();
    }

    /// Until everything that was posted is done and shown.
    void pump()
    {
        do {
            backend.received([this](Message& message) {
                if (message.number == GuiMessage::LAYERS)
                    GuiMessage::LAYERS.deliver(message, [this](const Layers::LayerList& reported) {
                        editor.report([this, reported] { layers.take(reported.getLayers()); });
                    });
                if (message.number == GuiMessage::EDIT_DONE)
                    GuiMessage::EDIT_DONE.deliver(message, [this](const EditDone& done) {
                        name = done.name;
                        poster.acknowledge(done);
                    });
                return std::string();
            });
        } while (!poster.isIdle());
        backend.rest();  // an edit may have been acknowledged before the engine has executed it
    }

    /// The transpositions in the backend, those of the selected rows in brackets.
    std::string shown()
    {
        pump();
        std::string text;
        for (const auto& layer : backend.orv->getLayerManager().getLayers().getLayers()) {
            const auto* row = list->item(layer.id);
            const std::string number = layer.transpose.toXmlString();
            text += row != nullptr && row->isSelected() ? "[" + number + "]" : number;
        }
        return text;
    }
    std::string after(int key, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(list, static_cast<Qt::Key>(key), held);
        return shown();
    }
    std::string undo()
    {
        poster.undo();
        return shown() + " after " + name;
    }
    void click(int row, Qt::KeyboardModifiers held = {})
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, held, list->visualItemRect(list->item(row)).center());
    }

    Gui::EditBox& field(const QString& of)
    {
        settle();
        for (auto* edit : form->findChildren<Gui::EditBox*>())
            if (edit->accessibleName() == of && !edit->isHidden()) return *edit;
        throw std::runtime_error("no field " + of.toStdString());
    }
    QLabel& nameOf(const QString& of)
    {
        for (auto* label : form->findChildren<QLabel*>())
            if (label->text() == of && label->buddy() == &field(of)) return *label;
        throw std::runtime_error("no name " + of.toStdString());
    }
    std::string type(const QString& of, const QString& text)
    {
        replaceText(field(of), text);
        QTest::keyClick(&field(of), Qt::Key_Return);
        pump();
        return field(of).text().toStdString();
    }

    EditStage backend;
    Gui::EditPoster poster{backend.commands()};
    FieldLists lists{.outputs = {"Piano", "", "Strings"}, .sequences = {"Fifths"}};
    LayerRecords layers{lists};
    std::string said, name;
    RecordEditor editor{layers, poster, [this](const QString& text) { said = text.toStdString(); }};
    RecordList* list = nullptr;
    RecordForm* form = nullptr;
};

TEST_F(SelectedRecords, AreCopiedDoubledAndDeletedInOneStepOfUndo)
{
    click(0);
    click(2, Qt::ControlModifier);
    after(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(after(Qt::Key_Delete), "2");
    EXPECT_EQ(after(Qt::Key_Delete), "2") << "nothing is selected";
    EXPECT_EQ(after(Qt::Key_V, Qt::ControlModifier), "2[1][3]") << "the originals are gone";
    EXPECT_EQ(after(Qt::Key_D, Qt::ControlModifier), "213[1][3]");
    EXPECT_EQ(undo(), "213 after double 2 layers");
    EXPECT_EQ(undo(), "2 after paste 2 layers");
    EXPECT_EQ(undo(), "[1]2[3] after delete 2 layers");
    poster.redo();
    EXPECT_EQ(shown(), "2");

    QApplication::clipboard()->setText("<Layers><Layer transpose='9'");
    after(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(said, "The clipboard has no layers.");

    click(0);
    editor.execute(RecordEditor::Command::twice);
    editor.execute(RecordEditor::Command::twice);
    editor.execute(RecordEditor::Command::remove);
    EXPECT_EQ(shown(), "22") << "each command acts on what the one before it has left selected";
    editor.showMenu(*list, {});
    EXPECT_EQ(menu(), "-Settings\tEnter, -Copy\tCtrl+C, Paste\tCtrl+V, -Double\tCtrl+D, -Delete\tDel");
    openMenu()->close();
}

TEST_F(SelectedRecords, KeepTheirSelectionWhenOthersComeAndGo)
{
    click(2);
    poster.post({.section = "Layers", .name = "one less", .records = {{.kind = RecordEdit::Kind::remove, .id = 0}}});
    EXPECT_EQ(shown(), "2[3]");
    EXPECT_EQ(undo(), "[1]23 after one less") << "what comes back";
    QTest::keyClicks(list, "l:2");
    EXPECT_EQ(shown(), "1[2]3");
    expectAccessible(*list, QAccessible::List, "Its name");
    const auto* row = QAccessible::queryAccessibleInterface(list)->child(1);
    EXPECT_TRUE(row->state().selected && row->state().selectable);
    EXPECT_EQ(row->text(QAccessible::Name), "L:2  Ch:1  T:2");
}

TEST_F(SelectedRecords, AreChangedTogetherByTheirForm)
{
    backend.commands().postAddSequencePreset("Fifths", "0,7");
    after(Qt::Key_A, Qt::ControlModifier);
    EXPECT_FALSE(form->isVisible());
    after(Qt::Key_Return);
    ASSERT_TRUE(form->isVisible());
    EXPECT_EQ(field("Transpose").text(), "") << "they differ";
    wheel(field("Transpose"), 1, Qt::ShiftModifier);
    EXPECT_EQ(shown(), "[13][14][15]") << "each from its own value";
    EXPECT_EQ(undo(), "[1][2][3] after 3 layers transpose");
    type("Transpose", "200");
    EXPECT_EQ(said, "Transpose: From 0 to 127.");
    EXPECT_EQ(shown(), "[127][127][127]");
    undo();

    click(1);
    const struct {
        const char* field;
        const char* typed;
        const char* shown;
    } ROWS[] = {{"Zone", "128", "128"},        {"Transpose", "-5", "-5"},
                {"Lowest note", "c4", "C4"},   {"Highest note", "B3", "C4"},
                {"Highest note", "G9", "G9"},  {"Lowest velocity", "130", "127"},
                {"Compress", "3/4", "3/4"},    {"Compress", "x", "3/4"},
                {"Compress", "0/200", "1/99"}, {"Sequence: text", "0,12", "0,12"}};
    for (const auto& row : ROWS) EXPECT_EQ(type(row.field, row.typed), row.shown) << row.field;
    QTest::keyClick(&field("Channel"), Qt::Key_Up);
    QTest::keyClick(&field("Output"), Qt::Key_Down);
    QTest::keyClick(&field("Arpeggio"), Qt::Key_Down);
    QTest::keyClick(&field("Arpeggio"), Qt::Key_Down);
    EXPECT_EQ(type("Beat", "1/8"), "1/8");
    EXPECT_EQ(type("Length", "100"), "100");
    wheel(field("Length"), 1);
    pump();
    EXPECT_EQ(field("Length").text(), "1/16") << "the next one with a name";
    EXPECT_EQ(field("Sequence").text(), "--local--");
    const auto& layer = backend.orv->getLayerManager().getLayers().getLayers()[1];
    EXPECT_EQ(layer.getLayerString("Piano"),
              "L:2  Ch:0  Z:128  VR:127-127  O:Piano  T:-5  Comp:1/99  "
              "Up Arp 1/8 Len:1/16");
    EXPECT_EQ(layer.sequenceSetting.getSequenceText(), "0,12");
    QTest::keyClick(&field("Sequence"), Qt::Key_Down);
    pump();
    EXPECT_EQ(layer.sequenceSetting.preset, "Fifths");

    QWidget& label = nameOf("Transpose");
    QTest::mousePress(&label, Qt::LeftButton);
    for (const int y : {-1, -2, -3}) mouseMove(label, label.rect().center() + QPoint(0, y));
    QTest::mouseRelease(&label, Qt::LeftButton);
    EXPECT_EQ(shown(), "1[-2]3");
    EXPECT_EQ(undo(), "1[-5]3 after layer 2 transpose") << "a drag is one step";
}
