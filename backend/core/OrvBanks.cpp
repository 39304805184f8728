// Changes of the programs of a bank by the user, with their history. See docs/behaviour/programs-and-banks.md.

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "backend/core/Orv.h"
#include "backend/messages/GuiMessages.h"
#include "backend/xml/XmlDocument.h"
#include "platform/DbgStream.h"

namespace Backend
{
using Kind = BankEditDone::Kind;

namespace
{
constexpr const char* NEW_PROGRAM = "<Program>\n</Program>\n";

/// The programs of an edit as they have to be arranged; nothing if one of them does not exist.
class Arranger
{
public:
    Arranger(const BankEdit& bankEdit, const std::map<int, std::string>& texts) : edit(bankEdit), edited(texts) {}

    /// In the bank that the edit changes; `source` has the programs that are copied.
    std::optional<Arrangement> arrange(BankFile& bank, BankFile& source) const
    {
        const int count = countOf(bank);
        const bool isInside = edit.source.empty();
        if (!std::ranges::all_of(edit.programs,
                                 [&](int number) { return hasProgram(isInside ? bank : source, number); }))
            return std::nullopt;
        if (edit.to < 0 || edit.to > count) return std::nullopt;
        Arrangement order;
        for (int number = 0; number <= count; ++number) {
            if (number == edit.to) insert(order, source);
            if (number < count && !isTaken(number, isInside)) order.push_back(place(number));
        }
        return order;
    }

    /// In the bank that loses the programs.
    Arrangement arrangeWithout(const BankFile& source) const
    {
        Arrangement order;
        for (int number = 0; number < countOf(source); ++number)
            if (!isNamed(number)) order.push_back({.number = number});
        return order;
    }

private:
    static int countOf(const BankFile& bank) { return static_cast<int>(bank.getProgramNames().size()); }
    static bool hasProgram(const BankFile& bank, int number) { return number >= 0 && number < countOf(bank); }
    bool isNamed(int number) const { return std::ranges::find(edit.programs, number) != edit.programs.end(); }
    bool isTaken(int number, bool isInside) const
    {
        const bool leaves = edit.kind == BankEdit::Kind::remove || (edit.kind == BankEdit::Kind::move && isInside);
        return leaves && isNamed(number);
    }
    ArrangedProgram place(int number) const
    {
        const bool isRenamed = edit.kind == BankEdit::Kind::rename && isNamed(number);
        return {.number = number, .name = isRenamed ? std::optional(edit.programName) : std::nullopt};
    }

    void insert(Arrangement& order, BankFile& source) const
    {
        if (edit.kind == BankEdit::Kind::add) order.push_back({.element = NEW_PROGRAM, .name = edit.programName});
        if (edit.kind != BankEdit::Kind::copy && edit.kind != BankEdit::Kind::move) return;
        for (const int number : edit.programs) {
            if (edit.kind == BankEdit::Kind::move && edit.source.empty()) {
                order.push_back({.number = number});
            } else {
                const auto text = edited.find(number);
                order.push_back({.element = text != edited.end() ? text->second : source.readText(number) + "\n"});
            }
        }
    }

    const BankEdit& edit;
    const std::map<int, std::string>& edited;  // the texts of edited programs
};
}  // namespace

/// What is done with one bank: its file is used by the files thread only while it is arranged.
struct Orv::BankWork {
    std::string path;
    BankFile file{};
    std::optional<Arrangement> order{};  // nothing if it is not possible
    std::optional<Arrangement> back{};   // nothing if it was not written
    std::size_t programs = 0;            // that the bank has then
    bool isCurrent = false;              // the set list of any other bank is changed in its file

    bool open() { return file.open(path); }
    /// Whether it has the programs that the user sees, or the user sees none of it.
    bool isAsShown(const BankEdit& edit) const
    {
        const auto seen = std::ranges::find(edit.shown, path, &Bank::name);
        return seen == edit.shown.end() || seen->programNames == file.getProgramNames();
    }
    void arrange()
    {
        const auto names = file.getProgramNames();
        back = order ? file.arrange(*order) : std::nullopt;
        programs = file.getProgramNames().size();
        if (back && !isCurrent) rearrangeSetList(names);
    }

private:
    void rearrangeSetList(const std::vector<std::string>& names) const
    {
        SetListFile stored(path);
        SetList list = stored.read();
        list.resolve(names);
        list.rearrange(numbersOf(*order), file.getProgramNames());
        if (!list.isBroken()) stored.write(list);
    }
};

Orv::BankWork Orv::takeBankFile(const std::string& path)
{
    const bool isCurrent = path == bank.name;
    return {.path = path, .file = std::move(isCurrent ? bankFile : otherBankFile), .isCurrent = isCurrent};
}

void Orv::editBank(const BankEdit& edit)
{
    assertBackendThread();
    struct Job {
        BankEdit edit;
        std::map<int, std::string> texts{};
        BankWork target{};
        std::optional<BankWork> source{};  // of a copy or move from another bank
        bool isStale = false;

        bool leavesSource() const { return source && edit.kind == BankEdit::Kind::move; }
    };
    const auto job = std::make_shared<Job>(Job{.edit = edit});
    if (job->edit.bank.empty()) job->edit.bank = bank.name;
    if (job->edit.source == job->edit.bank) job->edit.source.clear();
    if (job->edit.bank.empty()) return acknowledgeBank({Kind::failed, edit.bank, edit.name});
    const bool isFromHere = (job->edit.source.empty() ? job->edit.bank : job->edit.source) == bank.name;
    if (isFromHere) job->texts = findEditedTexts(job->edit);
    job->target = takeBankFile(job->edit.bank);
    if (!job->edit.source.empty()) job->source = takeBankFile(job->edit.source);
    files.run(
        [job] {
            BankFile& source = job->source ? job->source->file : job->target.file;
            if (!job->target.open() || (job->source && !job->source->open())) return;
            job->isStale = !job->target.isAsShown(job->edit) || (job->source && !job->source->isAsShown(job->edit));
            if (job->isStale) return;
            const Arranger arranger(job->edit, job->texts);
            if (job->leavesSource()) {
                job->source->order = arranger.arrangeWithout(source);
                if (job->source->order->empty()) return;
            }
            job->target.order = arranger.arrange(job->target.file, source);
            job->target.arrange();
            if (job->leavesSource() && job->target.back) job->source->arrange();
        },
        [=, this] {
            const bool isDone = job->target.back && (!job->leavesSource() || job->source->back);
            const Kind kind = job->isStale ? Kind::stale : isDone ? Kind::edited : Kind::failed;
            BankEditDone done{kind, job->edit.bank, job->edit.name};
            for (BankWork* work : {&job->target, job->source ? &*job->source : nullptr}) {
                if (work == nullptr) continue;
                const auto& names = work->file.getProgramNames();
                if (!names.empty()) done.banks.push_back({work->path, names});
            }
            if (job->source) addBankStep(*job->source, job->edit.name);
            addBankStep(job->target, job->edit.name);
            if (job->isStale && bankFile.getProgramNames() != bank.programNames) {
                takeBank(std::string(bank.name));
                notifyGui(GuiMessage::BANK, bank);
                updateSetList();
            }
            acknowledgeBank(done);
        });
}

/// The texts of those programs of the current bank that an edit copies and that are not as the file has them: the
/// current program as it is now, and drafts.
std::map<int, std::string> Orv::findEditedTexts(const BankEdit& edit)
{
    std::map<int, std::string> texts;
    for (const int number : edit.programs) {
        std::string text = number == program.number ? writeProgram() : drafts.textOf(bank.name, number);
        if (!text.empty()) texts.emplace(number, std::move(text));
    }
    return texts;
}

/// Takes the file back and follows what was arranged in it.
void Orv::addBankStep(BankWork& work, const std::string& name)
{
    const bool isCurrentBank = work.path == bank.name;
    (isCurrentBank ? bankFile : otherBankFile) = std::move(work.file);
    if (!work.back) return;
    BankStep step{.name = name, .order = std::move(*work.back), .programs = work.programs};
    if (isCurrentBank) step.drafts = followArrangement(*work.order);
    bankHistories[work.path].add(std::move(step));
}

void Orv::undoBank(const std::string& path)
{
    assertBackendThread();
    repeatBankStep(path.empty() ? bank.name : path, BankHistory::Way::undo);
}

void Orv::redoBank(const std::string& path)
{
    assertBackendThread();
    repeatBankStep(path.empty() ? bank.name : path, BankHistory::Way::redo);
}

void Orv::repeatBankStep(const std::string& path, BankHistory::Way way)
{
    const Kind kind = way == BankHistory::Way::undo ? Kind::undone : Kind::redone;
    const BankStep* const step = bankHistories[path].find(way);
    if (step == nullptr) return acknowledgeBank({kind, path});
    const auto work = std::make_shared<BankWork>(takeBankFile(path));
    work->order = step->order;
    files.run(
        [work, programs = step->programs] {
            if (work->open() && work->file.getProgramNames().size() == programs) work->arrange();
        },
        [=, this] {
            const bool isCurrentBank = path == bank.name;
            BankHistory& steps = bankHistories[path];
            BankStep& repeated = *steps.find(way);
            const BankEditDone done{
                work->back ? kind : Kind::failed, path, repeated.name, {{path, work->file.getProgramNames()}}};
            (isCurrentBank ? bankFile : otherBankFile) = std::move(work->file);
            if (!work->back) return acknowledgeBank(done);
            repeated.order = std::move(*work->back);
            repeated.programs = work->programs;
            auto restored = std::exchange(repeated.drafts, {});
            if (isCurrentBank) repeated.drafts = followArrangement(*work->order);
            for (auto& [number, draft] : restored) drafts.keep(path, number, std::move(draft));
            steps.count(way);
            acknowledgeBank(done);
        });
}

/// The current bank has been arranged so: the current program and the drafts get their new numbers and names. Returns
/// the drafts of those programs that were removed; if the current one was, that in its place is loaded.
std::vector<std::pair<int, Draft>> Orv::followArrangement(const Arrangement& order)
{
    std::map<int, int> places;  // by the number before
    for (std::size_t place = 0; place < order.size(); ++place)
        if (order[place].number >= 0) places[order[place].number] = static_cast<int>(place);
    const bool isThere = static_cast<std::size_t>(program.number) < bank.programNames.size();
    takeBank(std::string(bank.name));
    rearrangeSetList(order);

    std::vector<std::pair<int, Draft>> removed;
    for (auto& [number, draft] : drafts.takeAll(bank.name)) {
        const auto place = places.find(number);
        if (place == places.end()) {
            removed.emplace_back(number, std::move(draft));
            continue;
        }
        const auto& name = order[static_cast<std::size_t>(place->second)].name;
        if (name && !draft.text.empty()) draft.text = BankFile::renamed(draft.text, *name);
        drafts.keep(bank.name, place->second, std::move(draft));
    }
    notifyGui(GuiMessage::BANK, bank);
    if (const auto place = places.find(program.number); place != places.end()) {
        program.number = place->second;
        if (const auto& name = order[static_cast<std::size_t>(place->second)].name) program.name = *name;
        notifyProgram(IsThere::yes);
    } else if (isThere) {
        EditHistory left = std::exchange(history, {});
        removed.emplace_back(program.number, Draft{left.isEdited() ? writeProgram() : "", std::move(left)});
        const int next = std::min(program.number, static_cast<int>(bank.programNames.size()) - 1);
        enterProgram(bankFile.readProgram(next), next);
    }
    updateEdited();
    return removed;
}

void Orv::acknowledgeBank(const BankEditDone& done) const
{
    if (done.kind == Kind::failed) WindowsLib::DbgStream() << done.bank << ": not done: " << done.name;
    notifyGui(GuiMessage::BANK_EDIT_DONE, done);
}

namespace
{
void copySetList(const std::string& source, const std::string& target)
{
    SetListFile copy(target);
    copy.read();
    copy.write(SetListFile(source).read());
}
}  // namespace

void Orv::makeBank(const std::string& path, NewBank content, const WindowHandle& window)
{
    assertBackendThread();
    const bool isCopy = content == NewBank::copy;
    if (path.empty() || (isCopy && bank.name.empty())) return;
    const auto file = std::make_shared<BankFile>();
    const auto written = std::make_shared<bool>(false);
    files.run(
        [=, source = bank.name] {
            *written = isCopy ? file->open(source) && file->saveAs(path)
                              : file->create(path, 0, BankFile::renamed(NEW_PROGRAM, "Empty"));
            if (isCopy && *written) copySetList(source, path);
        },
        [=, this] {
            if (*written) isCopy ? followCopy(path, std::move(*file)) : enterNewBank(path, std::move(*file));
            notify(window, GuiMessage::OPERATION_DONE, *written);
        });
}

/// The drafts and the current program belong to the copy from now on.
void Orv::followCopy(const std::string& path, BankFile file)
{
    const std::string old = bank.name;
    bankFile = std::move(file);
    takeBank(path);
    bankHistories.erase(path);
    openSetList();
    for (auto& [number, draft] : drafts.takeAll(old)) drafts.keep(path, number, std::move(draft));
    notifyGui(GuiMessage::BANK, bank);
    updateEdited();
}

void Orv::enterNewBank(const std::string& path, BankFile file)
{
    history = {};
    drafts.forgetFrom(bank.name, 0);
    bankHistories.erase(path);
    bankFile = std::move(file);
    takeBank(path);
    openSetList();
    program.number = 0;
    showBank();
}
}  // namespace Backend
