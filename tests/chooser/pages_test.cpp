#include "orv/centrallibrarystate.h"
#include "orv/projectconfiguration.h"
#include "tests/support/projectfixture.h"

#include <QtWidgets/QTableView>

namespace {

using namespace testsupport;

/// The pages that choose symbols, over a project with a central library.
class ChoosersOfPages : public ProjectPages {
protected:
    ChoosersOfPages() {
        writeFile(directory() / "special.pin", "");
        writeFile(directory() / "borders.ini", "");
        writeFile(directory() / "parts.lmc", "[CentralLibrary]\n[Partitions.Symbols]\nlib=symbols\n"
                                             "[SpecialSymbols.Port]\nSymbol#0=lib:PORT\n"
                                             "[SpecialSymbols.Border]\nSymbol#0=lib:BORDER\n");
        openProject("[DesignInfo]\nPinComponents=special.pin\nBorderSymbols=borders.ini\n"
                    "CentralLibrary=parts.lmc\n");
    }

    /// Opens the page's chooser and gives it up. @return what it says and what it offers.
    std::string inChooserOf(const std::string& page) {
        openPage(page);
        QApplication::setActiveWindow(&window_);
        std::string seen;
        whenDialog([&](QDialog& chooser) {
            for (const auto* label : chooser.findChildren<QLabel*>()) {
                if (label->accessibleName() == QLatin1String("Problem") && label->isVisible())
                    seen += label->text().toStdString();
            }
            for (const std::string& symbol : textsOf(*find<QTableView>(chooser, "Symbols:")))
                seen += "|" + symbol;
            chooser.reject();
        });
        if (page == "Borders")
            clickCell(*page_->findChild<QAbstractItemView*>(), 1, 2);
        else
            QTest::mouseClick(&control<QToolButton>("New"), Qt::LeftButton);
        EXPECT_FALSE(page_->isModified());
        return seen;
    }
};

TEST_F(ChoosersOfPages, LookIntoTheLibraryOnlyWhileTheHostSaysThatItIsAttached) {
    struct State : Orv::ICentralLibraryState {
        bool attached;
        explicit State(bool is) : attached(is) {}
        bool IsAttached() override { return attached; }
    };
    const std::string none = "The project has no central library.";
    for (const auto& [page, symbol] :
         {std::pair{"Special Components", "|lib:PORT"}, {"Borders", "|lib:BORDER"}}) {
        SCOPED_TRACE(page);
        EXPECT_EQ(inChooserOf(page), symbol);
        for (const bool attached : {true, false}) {
            State state(attached);
            project().centralLibraryState = &state;
            EXPECT_EQ(inChooserOf(page), attached ? symbol : none);
        }
        project().centralLibraryState = nullptr;
        EXPECT_EQ(inChooserOf(page), none);
        std::filesystem::rename(directory() / "parts.lmc", directory() / "away.lmc");
        openProject(readFile(projectPath())); // the host's own state again
        EXPECT_EQ(inChooserOf(page), none);
        std::filesystem::rename(directory() / "away.lmc", directory() / "parts.lmc");
    }
}

} // namespace
