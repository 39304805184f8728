#include "gui/forms/BindingPicker.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "backend/bindings/functions/FunctionEnumerator.h"
#include "backend/bindings/functions/HelpTexts.h"
#include "backend/bindings/translations/TranslationEnumerator.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/Properties.h"

namespace Gui::Forms
{
using namespace Backend;

namespace
{
constexpr int ITEM = Qt::UserRole;  // its index; a title has none

/// The families in the order of the lists, each with the first type name of its own.
struct Family {
    const char* title;
    std::string_view first;
};
constexpr Family FAMILIES[] = {{QT_TRANSLATE_NOOP("BindingPicker", "MIDI"), ""},
                               {QT_TRANSLATE_NOOP("BindingPicker", "Screens"), "ShowSystem"},
                               {QT_TRANSLATE_NOOP("BindingPicker", "Presets"), "LoadOscillatorPreset"},
                               {QT_TRANSLATE_NOOP("BindingPicker", "Program, output and tempo"), "ChangeProgram"},
                               {QT_TRANSLATE_NOOP("BindingPicker", "Oscillators"), "DataSelectOsc"},
                               {QT_TRANSLATE_NOOP("BindingPicker", "Controls"), "SelectControl"},
                               {QT_TRANSLATE_NOOP("BindingPicker", "Zones"), "SelectZone"},
                               {QT_TRANSLATE_NOOP("BindingPicker", "Layers"), "DataSelectLayer"},
                               {QT_TRANSLATE_NOOP("BindingPicker", "Tempo by tapping"), "TapTempo"}};

struct Collector final : FunctionManagement::FunctionEnumerator,
                         MidiInput::TranslationManagement::TranslationEnumerator {
    void addFunction(const FunctionInfo& function) override { all.push_back(function); }
    void addTranslation(const FunctionInfo& translation) override { all.push_back(translation); }

    std::vector<FunctionInfo> all;
};

QString textOf(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }
}  // namespace

BindingPicker::BindingPicker(Of kind, QWidget* parent)
    : QWidget(parent), searchEdit(new EditBox), list(new QListWidget), sentence(new QLabel)
{
    Collector collector;
    if (kind == Of::functions)
        FunctionManagement::enumerateFunctions(collector);
    else
        MidiInput::TranslationManagement::enumerateTranslations(collector);
    for (const FunctionInfo& info : collector.all)
        items.push_back({std::string(info.typeName), textOf(info.displayName), info.helpId});
    addFamilies();

    searchEdit->setAccessibleName(tr("Search"));
    searchEdit->setPlaceholderText(tr("Search"));
    Property::set(*searchEdit, Property::NOWHEEL, true);
    list->setAccessibleName(kind == Of::functions ? tr("Functions") : tr("Translations"));
    sentence->setWordWrap(true);
    sentence->setTextFormat(Qt::PlainText);
    Property::set(*sentence, Property::TEXT, true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(searchEdit);
    column->addWidget(list, 1);
    column->addWidget(sentence);
    searchEdit->installEventFilter(this);
    connect(searchEdit, &QLineEdit::textChanged, this, &BindingPicker::search);
    connect(list, &QListWidget::currentRowChanged, this, &BindingPicker::choose);
}

void BindingPicker::addFamilies()
{
    const auto* family = std::begin(FAMILIES);
    const auto addTitle = [this](const char* title) {
        auto* item = new QListWidgetItem(QCoreApplication::translate("BindingPicker", title), list);
        item->setFlags(Qt::NoItemFlags);
    };
    addTitle(family->title);
    for (std::size_t index = 0; index < items.size(); ++index) {
        const auto* next = std::ranges::find(FAMILIES, std::string_view(items[index].typeName), &Family::first);
        if (next != std::end(FAMILIES)) addTitle(next->title);
        auto* item = new QListWidgetItem("  " + items[index].displayName, list);
        item->setData(ITEM, static_cast<int>(index));
    }
}

bool BindingPicker::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool moves = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    return moves && QApplication::sendEvent(list, event);
}

/// Shows those that have every word in their name or their sentence, and the titles above them.
void BindingPicker::search(const QString& text)
{
    const QStringList words = text.split(' ', Qt::SkipEmptyParts);
    QListWidgetItem* title = nullptr;
    for (int row = 0; row < list->count(); ++row) {
        QListWidgetItem* line = list->item(row);
        if (!line->data(ITEM).isValid()) {
            title = line;
            title->setHidden(true);
            continue;
        }
        const Item& item = items[static_cast<std::size_t>(line->data(ITEM).toInt())];
        const QString all = item.displayName + ' ' + QString::fromStdString(helpText(item.helpId));
        const bool found =
            std::ranges::all_of(words, [&](const QString& word) { return all.contains(word, Qt::CaseInsensitive); });
        line->setHidden(!found);
        if (found && title != nullptr) title->setHidden(false);
    }
}

void BindingPicker::setChosen(const std::string& typeName)
{
    const QSignalBlocker quiet(list);
    list->setCurrentRow(-1);
    for (int row = 0; row < list->count(); ++row) {
        const QVariant index = list->item(row)->data(ITEM);
        if (index.isValid() && items[static_cast<std::size_t>(index.toInt())].typeName == typeName)
            list->setCurrentRow(row);
    }
    choose();
}

std::string BindingPicker::getChosen() const
{
    const QListWidgetItem* line = list->currentItem();
    const bool isItem = line != nullptr && line->data(ITEM).isValid();
    return isItem ? items[static_cast<std::size_t>(line->data(ITEM).toInt())].typeName : std::string();
}

void BindingPicker::choose()
{
    const std::string chosen = getChosen();
    const auto item = std::ranges::find(items, chosen, &Item::typeName);
    sentence->setText(item == items.end() ? QString() : QString::fromStdString(helpText(item->helpId)));
    if (item != items.end() && onChoose && !list->signalsBlocked()) onChoose(chosen);
}
}  // namespace Gui::Forms
