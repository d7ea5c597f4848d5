#include "dialog/shell/commitcycle.h"

#include "dialog/shell/settingsupdater.h"
#include "orv/updater.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <utility>

using namespace ovsettings;

namespace {

/// Pages that go by letters, one an index. It writes down what is asked ("B?"), stored ("B ok"), saved and
/// told.
class Subject : public ICommitSubject, public Orv::IUpdater {
public:
    std::string letters = "ABC";
    char active = 'B';
    std::set<std::string> refusals; ///< entries that are answered with no
    std::string modified;           ///< the pages that are, until they are stored
    std::string edited;
    std::function<void()> duringNextStore;
    std::string trace;

    std::vector<unsigned> pages() const override {
        std::vector<unsigned> indices;
        for (unsigned index = 0; index < letters.size(); ++index)
            indices.push_back(index);
        return indices;
    }
    bool isActive(unsigned index) const override { return letters[index] == active; }
    bool isValid(unsigned index) override { return note(pageName(index) + "?"); }
    bool store(unsigned index, CommitKind kind) override {
        std::erase(modified, letters[index]);
        if (const auto act = std::exchange(duringNextStore, {}))
            act();
        return note(pageName(index) + (kind == CommitKind::ok ? " ok" : " apply"));
    }
    void cancel(unsigned index) override { note(pageName(index) + " cancel"); }
    bool isModified(unsigned index) const override { return modified.find(letters[index]) != modified.npos; }
    std::string pageName(unsigned index) const override { return std::string(1, letters[index]); }
    bool hasEdits(unsigned index) const override { return edited.find(letters[index]) != edited.npos; }
    void save() override { note("save"); }
    bool lastSaveFailed() const override { return refusals.contains("save"); }

    bool updateSettings(IUpdateHost* host) override {
        std::string changed;
        for (const char* name : {"A", "B", "C"})
            changed += host->isPageChanged(name) ? name : "";
        return note("told[" + changed + "]");
    }

private:
    bool note(const std::string& entry) {
        trace += (trace.empty() ? "" : ", ") + entry;
        return !refusals.contains(entry);
    }
};

class CommitCycleOfThree : public testing::Test {
protected:
    CommitCycleOfThree() { updater_.addUpdater(&subject_); }

    Subject subject_;
    CSettingsUpdater updater_;
    CommitCycle cycle_{subject_, updater_};
};

struct Order {
    const char* what;
    CommitKind kind;
    std::set<std::string> refusals;
    std::string trace;
    bool mayClose = false;
    std::optional<unsigned> refused = {};
    std::string letters = "ABC";
    std::string edited = {};
};

constexpr char kWholeOk[] = "B?, B ok, save, A?, B?, C?, A ok, C ok, save, told[]";
constexpr char kWholeApply[] = "B?, B apply, save, A?, B?, C?, A apply, C apply, save, told[]";

const Order kOrders[] = {
    {"OK asks and stores the active page first", CommitKind::ok, {}, kWholeOk, true},
    {"Apply does the same and stays open", CommitKind::apply, {}, kWholeApply},
    {"nothing happens without an active page", CommitKind::ok, {}, "", false, {}, "AC"},
    {"an active page that is not valid ends it", CommitKind::ok, {"B?"}, "B?"},
    {"OK goes on where the active page did not store", CommitKind::ok, {"B ok"}, kWholeOk, true},
    {"but stays open over its edits", CommitKind::ok, {"B ok"}, kWholeOk, false, {}, "ABC", "B"},
    {"Apply ends there", CommitKind::apply, {"B apply"}, "B?, B apply"},
    {"another invalid page is shown", CommitKind::ok, {"C?"}, "B?, B ok, save, A?, B?, C?", false, 2},
    {"the first of them is", CommitKind::apply, {"A?", "C?"}, "B?, B apply, save, A?", false, 0},
    {"OK stays open after another page did not store", CommitKind::ok, {"A ok"}, kWholeOk},
    {"and where something could not be written", CommitKind::ok, {"save"}, kWholeOk},
    {"edits of the others are theirs to tell", CommitKind::ok, {}, kWholeOk, true, {}, "ABC", "AC"},
    {"a page under two indices is not stored again while it is active",
     CommitKind::ok,
     {},
     "B?, B ok, save, B?, A?, B?, A ok, save, told[]",
     true,
     {},
     "BAB"},
};

TEST(CommitCycle, AsksStoresSavesAndTellsInItsFixedOrder) {
    for (const Order& order : kOrders) {
        SCOPED_TRACE(order.what);
        Subject subject;
        subject.refusals = order.refusals;
        subject.letters = order.letters;
        subject.edited = order.edited;
        CSettingsUpdater updater;
        updater.addUpdater(&subject);
        CommitCycle cycle(subject, updater);
        const CommitResult result = cycle.commit(order.kind);
        EXPECT_EQ(subject.trace, order.trace);
        EXPECT_EQ(result.mayClose, order.mayClose);
        EXPECT_EQ(result.refused, order.refused);
        EXPECT_EQ(result.isUnwritten, order.refusals.contains("save"));
        EXPECT_EQ(cycle.isApplied(), subject.trace.ends_with("told[]"));
    }
}

TEST_F(CommitCycleOfThree, TellsWhatWasChangedBeforeAnythingWasStoredUnlessAPageTellsMeanwhile) {
    subject_.modified = "AB";
    cycle_.commit(CommitKind::apply);
    EXPECT_TRUE(subject_.trace.ends_with("save, told[AB]"));
    cycle_.commit(CommitKind::apply);
    EXPECT_TRUE(subject_.trace.ends_with("save, told[]"));

    subject_.modified = "ABC";
    subject_.trace.clear();
    subject_.duringNextStore = [this] {
        cycle_.notifyUpdaters();
    };
    cycle_.commit(CommitKind::ok);
    EXPECT_EQ(subject_.trace, "B?, told[AC], B ok, save, A?, B?, C?, A ok, C ok, save, told[AC]");
}

TEST_F(CommitCycleOfThree, CancelAsksEachPageAndTakesNoApplyBack) {
    subject_.edited = "AC";
    EXPECT_EQ(cycle_.pagesWithEdits(), (std::vector<unsigned>{0, 2}));
    subject_.refusals = {"A cancel", "C?"};
    cycle_.cancel();
    EXPECT_EQ(subject_.trace, "A cancel, B cancel, C cancel");
    EXPECT_FALSE(cycle_.isApplied());
    cycle_.commit(CommitKind::apply);
    EXPECT_FALSE(cycle_.isApplied()) << "a page refused";
    subject_.refusals = {};
    cycle_.commit(CommitKind::apply);
    cycle_.cancel();
    EXPECT_TRUE(cycle_.isApplied());
}

} // namespace
