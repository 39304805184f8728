#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class QLabel;
class QListWidget;

namespace Gui
{
class EditBox;
}

namespace Gui::Forms
{
/// A list of all functions, or of all translations, by family, searched by typing, with a sentence about the one that
/// is chosen. The GUI thread.
class BindingPicker final : public QWidget
{
public:
    enum class Of { functions, translations };

    explicit BindingPicker(Of kind, QWidget* parent = nullptr);

    /// The user chose another one.
    std::function<void(const std::string& typeName)> onChoose;

    /// Calls nothing. An unknown name chooses none.
    void setChosen(const std::string& typeName);
    std::string getChosen() const;

protected:
    /// In the search, the keys that move through a list.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void addFamilies();
    void search(const QString& text);
    void choose();

    struct Item {
        std::string typeName;
        QString displayName;
        int helpId;
    };
    std::vector<Item> items;
    EditBox* searchEdit;
    QListWidget* list;
    QLabel* sentence;
};
}  // namespace Gui::Forms
