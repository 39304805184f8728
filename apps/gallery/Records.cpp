#include "apps/gallery/Records.h"

#include <QBoxLayout>
#include <QLabel>
#include <utility>

#include "api/OrvFactory.h"
#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/LayerMessageManager.h"
#include "backend/model/LayerList.h"
#include "gui/forms/LayerRecords.h"
#include "gui/forms/RecordEditor.h"
#include "gui/forms/RecordForm.h"
#include "gui/forms/RecordList.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/GuiWindow.h"
#include "tests/stage/SilentPlayer.h"

using namespace Backend;

/// A program with layers, and what shows it.
struct Records::Program {
    explicit Program(QLabel& line) : status(line)
    {
        orv->start();
        orv->setGuiWindowHandle(window.getHandle());
        orv->getLayerMessageManager().postSetLayers(makeLayers(), true);
    }
    ~Program() { orv->stop(); }

    static Layers::LayerList makeLayers()
    {
        Layers::Layer split, arpeggio;
        split.minNote = MidiEngine::Note(60);
        split.transpose.value = 12;
        arpeggio.channel = 1;
        arpeggio.arpeggio.emplace();
        Layers::LayerList layers;
        for (const auto& layer : {Layers::Layer(), split, arpeggio}) layers.add(layer);
        return layers;
    }

    void handle(Message& message)
    {
        if (message.number == GuiMessage::LAYERS)
            GuiMessage::LAYERS.deliver(message, [this](const Layers::LayerList& reported) {
                editor.report([this, reported] { layers.take(reported.getLayers()); });
                if (std::exchange(isFirst, false)) open();
            });
        if (message.number == GuiMessage::EDIT_DONE)
            GuiMessage::EDIT_DONE.deliver(message, [this](const EditDone& done) {
                edits.acknowledge(done);
                constexpr const char* TEXTS[] = {"%1", "Undone: %1", "Redone: %1"};
                status.setText(QString(TEXTS[static_cast<int>(done.kind)]).arg(QString::fromStdString(done.name)));
            });
    }

    /// The settings of two layers that differ.
    void open()
    {
        editor.getSelection().select({0, 1});
        editor.setOpen(true);
    }

    QLabel& status;
    bool isFirst = true;
    SilentPlayer player;
    std::unique_ptr<OrvIF> orv = OrvFactory::makeOrv("", player, false);
    Gui::EditPoster edits{orv->getOrvMessageManager()};
    const Gui::Forms::FieldLists lists{.outputs = {"Synthesizer", "Stage Piano"}, .sequences = {"011 - 5th Up"}};
    Gui::Forms::LayerRecords layers{lists};
    Gui::Forms::RecordEditor editor{layers, edits, [this](const QString& text) { status.setText(text); }};
    Gui::GuiWindow window{[this](Message& message) { handle(message); }};
};

Records::Records(Gui::GuiContext& context) : QWidget()
{
    auto* status = new QLabel;
    program = std::make_unique<Program>(*status);
    auto* column = new QVBoxLayout(this);
    column->addWidget(new Gui::Forms::RecordList(program->editor));
    column->addWidget(new Gui::Forms::RecordForm(context, program->editor));
    column->addWidget(status);
}

bool Records::areShown() const { return !program->layers.getIds().empty(); }

Records::~Records() { qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly)); }
