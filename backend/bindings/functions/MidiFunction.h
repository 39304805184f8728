#pragma once

#include <cstdint>
#include <string_view>

#include "backend/bindings/functions/FunctionFamilies.h"

namespace Backend::FunctionManagement
{
/// A data value of a MIDI function: its attribute, and its initial value, which differs for a function from a file and
/// one from a picker.
struct MidiDataShape {
    enum class Text { number, note };

    std::string_view attribute{};  ///< empty if the event does not have this value
    int fromFile = 0;
    int picked = 0;
    Text text = Text::number;

    constexpr bool exists() const { return !attribute.empty(); }
};

/// The event of a MIDI function.
struct MidiShape {
    enum class Path { layers, engine };
    enum class Width { bytes, fourteenBits };

    MidiEngine::MessageType status;
    Path path = Path::layers;
    bool hasChannel = true;
    MidiDataShape d1{};
    MidiDataShape d2{};
    Width width = Width::bytes;
};

/// The parameters of a MIDI function; -1 for no zone and for the default output and channel.
struct MidiParameters {
    std::int8_t zone = -1;
    std::int8_t output = -1;
    std::int8_t channel = -1;
    std::int16_t d1 = 0;
    std::int16_t d2 = 0;

    static MidiParameters picked(const MidiShape& shape);
    static MidiParameters fromXml(const XmlElement& element, const MidiShape& shape);
    void writeXml(std::ostream& out, const MidiShape& shape) const;

    /// Sets a data value, limited to the bits that the shape has.
    void setD1(int value, const MidiShape& shape);
    void setD2(int value, const MidiShape& shape);

    /// Plays the event: a channel message or a song position through the layers, any other directly.
    void play(OrvIF& orv, const MidiShape& shape) const;

    bool operator==(const MidiParameters&) const = default;
};

/// Plays the event of `Derived::shape`.
template <class Derived>
class MidiFunction : public FunctionOf<Derived, MidiSettingsType>
{
public:
    explicit MidiFunction(OrvIF& backend)
        : FunctionOf<Derived, MidiSettingsType>(backend), parameters(MidiParameters::picked(Derived::shape))
    {
    }

    void execute() override { parameters.play(this->orv(), Derived::shape); }

    MidiEngine::MessageType getStatus() const override { return Derived::shape.status; }
    std::int8_t getZone() const override { return parameters.zone; }
    void setZone(int number) override { parameters.zone = static_cast<std::int8_t>(number); }
    std::int8_t getOutput() const override { return parameters.output; }
    void setOutput(int port) override { parameters.output = static_cast<std::int8_t>(port); }
    int getChannel() const override { return parameters.channel; }
    void setChannel(int number) override
    {
        if (Derived::shape.hasChannel) parameters.channel = static_cast<std::int8_t>(number);
    }
    int getD1() const override { return parameters.d1; }
    void setD1(int value) override { parameters.setD1(value, Derived::shape); }
    int getD2() const override { return parameters.d2; }
    void setD2(int value) override { parameters.setD2(value, Derived::shape); }

    void readParameters(const XmlElement& element) { parameters = MidiParameters::fromXml(element, Derived::shape); }
    void writeParameters(std::ostream& out) const { parameters.writeXml(out, Derived::shape); }
    bool hasSameParameters(const Derived& other) const { return parameters == other.parameters; }

private:
    MidiParameters parameters;
};
}  // namespace Backend::FunctionManagement
