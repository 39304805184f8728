#pragma once

#include <QTimer>
#include <array>
#include <string>

#include "gui/framework/Panel.h"
#include "gui/screens/display/DisplayGuiMessageManager.h"

class QKeyEvent;
class QPushButton;

namespace Backend
{
class RegistrySettings;
}
namespace Backend::Display
{
class DisplayListener;
class DisplayMessageManager;
}  // namespace Backend::Display

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Display
{
class HeightEdge;
class LogView;

/// The running log of what is played and comes in. While it is in sight it asks the backend's display for new text ten
/// times a second, so it costs the same however much is played.
class DisplayPanel final : public Panel
{
public:
    static constexpr int WIDTH = 760;

    DisplayPanel(OrvGuiIF& owner, Panel* around);
    ~DisplayPanel() override;

    void addText(const std::string& text);
    void setText(const std::string& text);

    void handleSettingsChanged(const Backend::RegistrySettings& settings);
    void handleLargeDisplayFontChanged(bool on);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    static constexpr std::size_t SWITCHES = 4;

    void makeButtons();
    void makeEdge();
    void playKey(const QKeyEvent& event);
    Backend::Display::DisplayMessageManager& getDisplay() const;

    OrvGuiIF& gui;
    DisplayGuiMessageManager messages;
    Backend::Display::DisplayListener* feed;  // the display's, once it is given back
    LogView* log;
    HeightEdge* edge;
    std::array<QPushButton*, SWITCHES> switches{};
    QTimer pull;
};
}  // namespace Gui::Display
