#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "backend/model/Program.h"
#include "backend/sections/Records.h"

namespace Backend
{
/// The program's own values as one record: the attributes of its element.
class ProgramValues final : public Records
{
public:
    static constexpr const char* SECTION = "Program";

    /// `publish` sends the values of `current` to what plays them and to the window.
    ProgramValues(Program& current, std::function<void()> publish) : program(current), send(std::move(publish)) {}

    std::vector<RecordId> getRecordIds() const override { return {ID}; }
    std::string writeRecord(RecordId id) const override;
    void replaceRecord(RecordId id, const XmlElement& element) override;
    void addRecord(RecordId, const XmlElement&) override {}
    void removeRecord(RecordId) override {}
    void publishRecords() override { send(); }

    /// Their attributes in the program's element.
    static std::string toXmlAttributes(const Program& program);
    /// Reads them: an absent tempo, or one beyond the limits, stays as it is in `into`.
    static void read(const XmlElement& element, Program& into);

private:
    static constexpr RecordId ID = 0;

    Program& program;
    const std::function<void()> send;
};
}  // namespace Backend
