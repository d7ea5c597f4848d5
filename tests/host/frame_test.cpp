#include "ovsettings/showsettingsdialog.h"
#include "suite/configuration.h"
#include "tests/host/hostdialog.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <stdexcept>

using testsupport::selectCategory;

namespace {

using Calls = std::vector<std::string>;

/// Three pages of the add-in; the first is on show when the dialog opens, `visit` makes the others.
class Frame : public HostDialog {
protected:
    Frame() { catalogue(category("A") + category("B") + category("C")); }

    static void visit(QDialog& dialog, const std::vector<std::string>& names) {
        for (const std::string& name : names)
            EXPECT_TRUE(selectCategory(dialog, name));
        recorder().calls.clear();
    }
};

TEST_F(Frame, CommitAsksAndStoresInItsFixedOrder) {
    AskingUpdater updater({"A", "B", "C"});
    recorder().answers["B.isModified"] = true;
    const int result = run(&updater, [](QDialog& dialog) {
        visit(dialog, {"C", "B"});
        press(dialog, "Apply");
        EXPECT_EQ(recorder().calls, (Calls{"B.isValid", "B.onApply", "A.isValid", "B.isValid", "C.isValid",
                                           "A.onApply", "C.onApply"}));
        recorder().calls.clear();
        press(dialog, "OK");
    });
    EXPECT_EQ(result, 1);
    recorder().calls.resize(7);
    EXPECT_EQ(recorder().calls,
              (Calls{"B.isValid", "B.onOk", "A.isValid", "B.isValid", "C.isValid", "A.onOk", "C.onOk"}));
    const std::set<std::string> changed{"B"};
    EXPECT_EQ(updater.notifications, (std::vector{changed, changed}));
}

TEST_F(Frame, PagesAreMadeOnFirstSelectionAndOnlyThoseAreAsked) {
    run([](QDialog& dialog) {
        EXPECT_EQ(recorder().calls, (Calls{"A.made", "A.onEnter"}));
        recorder().calls.clear();
        selectCategory(dialog, "C");
        EXPECT_EQ(recorder().calls, (Calls{"A.onLeave", "C.made", "C.onEnter"}));
        recorder().calls.clear();
        selectCategory(dialog, "C"); // the category on show: nothing happens
        EXPECT_EQ(recorder().calls, Calls{});
        press(dialog, "Cancel");
    });
    EXPECT_EQ(recorder().calls, (Calls{"A.onCancel", "C.onCancel", "A.deleted", "C.deleted"}));
}

TEST_F(Frame, RefusedPageIsShownWhileTheTreeHighlightsTheOneBefore) {
    AskingUpdater updater;
    recorder().answers["C.isValid"] = false;
    const int result = run(&updater, [&](QDialog& dialog) {
        visit(dialog, {"C", "A"});
        press(dialog, "OK");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(selectedCategory(dialog) + pageCaption(dialog), "BC");
        // The way there leads over the page before, which is made for it.
        EXPECT_EQ(recorder().calls, (Calls{"A.isValid", "A.onOk", "A.isValid", "C.isValid", "A.onLeave",
                                           "B.made", "B.onEnter", "C.onEnter"}));
        EXPECT_TRUE(updater.notifications.empty());
        press(dialog, "Cancel");
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(storedLastPage(), "C");
}

TEST_F(Frame, RefusedPageIsShownAlsoWhenTheOneOnShowDoesNotLetItselfBeLeft) {
    recorder().answers["C.isValid"] = false;
    run([](QDialog& dialog) {
        visit(dialog, {"C", "A"});
        recorder().answers["A.onLeave"] = false;
        press(dialog, "OK");
        EXPECT_EQ(selectedCategory(dialog) + pageCaption(dialog), "AC");
        press(dialog, "Cancel");
    });
}

TEST_F(Frame, EachStepOfACommitFindsOnDiskWhatTheStepsBeforeHaveStored) {
    const auto stores = [this](const char* key, const std::string& value) {
        return [this, key, value] {
            Orv::iAppConfiguration::Property property(key);
            property.values = {value};
            configuration_.setProperty(property);
        };
    };
    std::string seen;
    class Reader : public Orv::IUpdater {
    public:
        explicit Reader(std::string& seen) : seen_(seen) {}
        bool updateSettings(ovsettings::IUpdateHost*) override {
            seen_ += " then " + stored("BOXSIZE_HR");
            return true;
        }

    private:
        std::string& seen_;
    } updater(seen);
    recorder().acts["B.isValid"] = [&seen] {
        seen = stored("GRID_HR");
    };
    run(&updater, [&](QDialog& dialog) {
        visit(dialog, {"B", "A"});
        for (const std::string operation : {"onApply", "onOk"}) {
            recorder().acts["A." + operation] = stores("GRID_HR", operation == "onOk" ? "508000" : "635000");
            recorder().acts["B." + operation] = stores("BOXSIZE_HR", operation == "onOk" ? "508" : "635");
        }
        press(dialog, "Apply");
        EXPECT_EQ(seen, "635000 then 635");
        press(dialog, "OK");
        EXPECT_EQ(seen, "508000 then 508");
    });
}

TEST_F(Frame, OkKeepsTheDialogOpenWhileSomethingCannotBeWritten) {
    // A lock that cannot be had makes every write fail.
    const auto lock = installation_.user() / ".orvane.xml.lock";
    Orv::IOvConfigurationManager::Instance().SetErrorHandler([](const std::string&) {});
    const int result = run([&](QDialog& dialog) {
        recorder().answers["A.onOk"] = false;
        recorder().answers["A.isModified"] = true;
        press(dialog, "OK");
        EXPECT_TRUE(dialog.isVisible()) << "the page could not store and still has its edits";
        recorder().answers.clear();

        recorder().acts["A.onOk"] = [this] {
            configuration_.setNumber("GRID_HR", 508000.0F);
        };
        std::filesystem::remove(lock);
        std::filesystem::create_directory(lock);
        EXPECT_TRUE(testsupport::contains(testsupport::messageDuring([&] { press(dialog, "OK"); }),
                                          installation_.user().string()));
        EXPECT_TRUE(dialog.isVisible() && configuration_.lastSaveFailed());
        recorder().acts.clear();
        std::filesystem::remove(lock);
        press(dialog, "OK");
        EXPECT_FALSE(dialog.isVisible() || configuration_.lastSaveFailed());
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(stored("GRID_HR"), "508000");
    Orv::IOvConfigurationManager::Instance().SetErrorHandler({});
}

TEST_F(Frame, EscapeAndTheCloseBoxAskBeforeTheyGiveUpEditsAndCancelDoesNot) {
    const std::function<void(QDialog&)> escape = [](QDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
    };
    const std::function<void(QDialog&)> closeBox = [](QDialog& dialog) {
        dialog.close();
    };
    for (const auto& leave : {escape, closeBox}) {
        run([&](QDialog& dialog) {
            visit(dialog, {"C", "B", "A"});
            recorder().answers["B.isModified"] = recorder().answers["C.isModified"] = true;
            std::string question;
            testsupport::whenModal([&question](QWidget& box) {
                question = dynamic_cast<QMessageBox&>(box).text().toStdString();
                QTest::keyClick(&box, Qt::Key_Escape);
                EXPECT_TRUE(box.isVisible()) << "one Escape too many";
                QTest::keyClick(&box, Qt::Key_Return);
            });
            leave(dialog);
            EXPECT_EQ(question, "There are changes that have not been saved:\n\nB\nC");
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(recorder().calls, Calls{});
            testsupport::answerNextMessageBox("Discard changes");
            leave(dialog);
            EXPECT_FALSE(dialog.isVisible());
            EXPECT_EQ(recorder().calls, (Calls{"A.onCancel", "B.onCancel", "C.onCancel"}));
        });
    }
    run([](QDialog& dialog) {
        press(dialog, "Cancel");
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST_F(Frame, RefusedPageIsNotEnteredAfterAFailureOnTheWayToIt) {
    recorder().answers["C.isValid"] = false;
    EXPECT_THROW(run([](QDialog& dialog) {
                     visit(dialog, {"C", "A"});
                     recorder().acts["B.onEnter"] = [] {
                         throw std::range_error("on the way");
                     };
                     press(dialog, "OK");
                 }),
                 std::range_error);
    EXPECT_EQ(std::count(recorder().calls.begin(), recorder().calls.end(), "C.onEnter"), 0);
}

TEST_F(Frame, RefusedFirstPageMovesNoHighlight) {
    recorder().answers["A.isValid"] = false;
    run([](QDialog& dialog) {
        visit(dialog, {"B"});
        press(dialog, "OK");
        EXPECT_EQ(selectedCategory(dialog) + pageCaption(dialog), "BA");
        press(dialog, "Cancel");
    });
}

TEST_F(Frame, CancelReturnsWhatWasAppliedBefore) {
    AskingUpdater updater;
    EXPECT_EQ(run(&updater, [](QDialog& dialog) { press(dialog, "Cancel"); }), 0);
    EXPECT_EQ(run(&updater,
                  [](QDialog& dialog) {
                      press(dialog, "Apply");
                      QTest::keyClick(&dialog, Qt::Key_Escape);
                  }),
              1);
    EXPECT_EQ(updater.notifications.size(), 1u);
}

TEST_F(Frame, VetoOnLeavingKeepsTreeAndPageByMouseKeyAndCode) {
    run([](QDialog& dialog) {
        visit(dialog, {"A"});
        auto* tree = dialog.findChild<QTreeWidget*>();
        recorder().answers["A.onLeave"] = false;
        const std::function<void()> attempts[] = {
            [&] { selectCategory(dialog, "B"); },
            [&] { QTest::keyClick(tree, Qt::Key_Down); },
            [&] { QTest::keyClick(tree, Qt::Key_End); },
            [&] { tree->setCurrentItem(tree->topLevelItem(1)); },
        };
        for (const auto& attempt : attempts) {
            recorder().calls.clear();
            attempt();
            EXPECT_EQ(recorder().calls, Calls{"A.onLeave"});
            EXPECT_EQ(selectedCategory(dialog) + pageCaption(dialog), "AA");
        }
        recorder().answers.clear();
        QTest::keyClick(tree, Qt::Key_Down);
        EXPECT_EQ(pageCaption(dialog), "B");
        press(dialog, "Cancel");
    });
}

TEST_F(Frame, LastPageIsRememberedAtEachSwitchAndShownNextTime) {
    run([](QDialog& dialog) {
        selectCategory(dialog, "B");
        EXPECT_EQ(storedLastPage(), "B");
        press(dialog, "Cancel");
    });
    run([](QDialog& dialog) {
        EXPECT_EQ(selectedCategory(dialog) + pageCaption(dialog), "BB");
        press(dialog, "Cancel");
    });
    catalogue(category("A") + category("C"));
    run([](QDialog& dialog) {
        EXPECT_EQ(selectedCategory(dialog) + pageCaption(dialog), "A");
        press(dialog, "Cancel");
    });
}

TEST_F(Frame, PageThatCannotBeMadeLeavesTheAreaEmpty) {
    catalogue(category("A") + category("Null") + category("None", "Null") + category("NoWindow") +
              category("B"));
    run([](QDialog& dialog) {
        visit(dialog, {"A"});
        selectCategory(dialog, "Null");
        EXPECT_EQ(pageCaption(dialog), "Null");
        selectCategory(dialog, "None");
        EXPECT_EQ(pageCaption(dialog) + storedLastPage(), "NoneNone");
        EXPECT_EQ(dialog.findChild<QScrollArea*>()->findChildren<QLineEdit*>().size(), 1);
        EXPECT_FALSE(dialog.findChild<QScrollArea*>()->findChild<QLineEdit*>()->isVisible());
        press(dialog, "OK"); // with no page there is nothing to commit
        press(dialog, "Help");
        EXPECT_TRUE(dialog.isVisible());

        testing::internal::CaptureStderr();
        selectCategory(dialog, "NoWindow");
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "OvSettings: Cannot create property page dialog 'RecordingPage' with IDD=9000 and state in "
                  "'OvSettings'\n");
        EXPECT_EQ(pageCaption(dialog), "NoWindow");
        recorder().calls.clear();
        press(dialog, "OK");
    });
    EXPECT_EQ(recorder().calls.front(), "NoWindow.isValid");
}

TEST_F(Frame, ExceptionReachesTheHostAfterTheLoopHasEnded) {
    class Thrower : public Orv::IUpdater {
        bool updateSettings(ovsettings::IUpdateHost*) override { throw std::runtime_error("host's own"); }
    } thrower;
    EXPECT_THROW(run(&thrower, [](QDialog& dialog) { press(dialog, "Apply"); }), std::runtime_error);

    for (const char* call : {"A.onEnter", "A.onLeave", "B.onEnter", "A.showHelp", "A.onCancel"}) {
        recorder() = Recorder();
        recorder().acts[call] = [] {
            throw std::out_of_range("page's own");
        };
        const auto script = [](QDialog& dialog) {
            press(dialog, "Help");
            if (dialog.isVisible())
                selectCategory(dialog, "B");
            if (dialog.isVisible())
                press(dialog, "Cancel");
        };
        const bool beforeTheLoop = std::string(call) == "A.onEnter";
        configuration_.setProperty([] {
            Orv::iAppConfiguration::Property last("MRU_SETTINGS");
            last.values = {"A"};
            return last;
        }());
        if (beforeTheLoop)
            EXPECT_THROW(ovsettings::showSettingsDialog(configuration_, project_, nullptr),
                         std::out_of_range);
        else
            EXPECT_THROW(run(script), std::out_of_range) << call;
    }
}

TEST_F(Frame, WhatAnAddInThrowsWhileTheDialogGoesReachesTheHostAsWell) {
    catalogue(category("By name", "A"));
    recorder().acts["By name.removed"] = [] {
        throw std::range_error("at the end");
    };
    EXPECT_THROW(run([](QDialog& dialog) { press(dialog, "Cancel"); }), std::range_error);
    recorder().acts["A.onCancel"] = [] {
        throw std::out_of_range("first");
    };
    EXPECT_THROW(run([](QDialog& dialog) { press(dialog, "Cancel"); }), std::out_of_range);
}

TEST_F(Frame, PageThatIsServedTwiceOrDeletesItselfDoesNoHarm) {
    catalogue(category("A") + category("One", "Shared") + category("Two", "Shared"));
    run([](QDialog& dialog) {
        visit(dialog, {"One", "Two"});
        EXPECT_EQ(textsOnShow(dialog).size(), 1u);
        visit(dialog, {"A"});
        auto* pageOfA = dialog.findChild<QScrollArea*>()->findChild<QLineEdit*>()->parentWidget();
        recorder().acts["A.onApply"] = [pageOfA] {
            pageOfA->deleteLater();
        };
        press(dialog, "Apply");
        QCoreApplication::sendPostedEvents(pageOfA, QEvent::DeferredDelete);
        press(dialog, "Apply"); // nothing is active any more
        EXPECT_TRUE(selectCategory(dialog, "Two"));
        EXPECT_EQ(pageCaption(dialog), "Two");
        press(dialog, "OK");
    });
}

TEST_F(Frame, CommandThatComesWhileOneRunsIsIgnored) {
    AskingUpdater updater;
    const int result = run(&updater, [](QDialog& dialog) {
        visit(dialog, {"B", "A"});
        recorder().acts["A.onApply"] = [&dialog] {
            press(dialog, "OK");
            press(dialog, "Cancel");
            dialog.close();
            selectCategory(dialog, "B");
        };
        press(dialog, "Apply");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(recorder().calls, (Calls{"A.isValid", "A.onApply", "A.isValid", "B.isValid", "B.onApply"}));
        dialog.close();
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(updater.notifications.size(), 1u);
}

TEST_F(Frame, StepToAnotherPageThatComesWhileOneIsTakenIsIgnored) {
    run([](QDialog& dialog) {
        visit(dialog, {"A"});
        for (const char* call : {"A.onLeave", "B.onEnter"}) {
            recorder().acts[call] = [&dialog] {
                selectCategory(dialog, "C");
                press(dialog, "Apply");
            };
        }
        selectCategory(dialog, "B");
        EXPECT_EQ(recorder().calls, (Calls{"A.onLeave", "B.made", "B.onEnter"}));
        EXPECT_EQ(selectedCategory(dialog) + pageCaption(dialog), "BB");
        press(dialog, "Cancel");
    });
}

TEST_F(Frame, StaysAboveTheHostsWindowThoughAMessageCameBeforeIt) {
    catalogue(category("A") + "<wrong/>");
    QWindow host;
    host.show();
    host.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&host));
    run([&host](QDialog& dialog) {
        EXPECT_EQ(dialog.windowHandle()->transientParent(), &host);
        press(dialog, "Cancel");
    });
    EXPECT_EQ(boxes_.size(), 1u);
}

TEST_F(Frame, ResultSurvivesAnEventLoopThatTheHostEnds) {
    EXPECT_EQ(run([](QDialog& dialog) {
                  press(dialog, "Apply");
                  dialog.hide();
              }),
              1);
}

TEST_F(Frame, ActivePageSeesEachKeyOnceAndMayKeepIt) {
    const std::string enter = "A.key" + std::to_string(Qt::Key_Return);
    run([&enter](QDialog& dialog) {
        visit(dialog, {"A"});
        recorder().answers[enter] = true;
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        EXPECT_EQ(recorder().calls, Calls{enter});
        const std::string help = "A.key" + std::to_string(Qt::Key_F1);
        for (const bool isKept : {true, false}) {
            recorder().answers[help] = isKept;
            recorder().calls.clear();
            QTest::keyClick(dialog.focusWidget(), Qt::Key_F1);
            EXPECT_EQ(recorder().calls, isKept ? Calls{help} : (Calls{help, "A.showHelp"}));
        }
        recorder().answers[enter] = false;
        recorder().calls.clear();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); // goes on to the default button
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(recorder().calls, (Calls{enter, "A.isValid", "A.onOk", "A.isValid"}));
    });
}

TEST_F(Frame, DragOverTheTreeMovesNeitherPageNorHighlight) {
    run([](QDialog& dialog) {
        visit(dialog, {"A"});
        auto* tree = dialog.findChild<QTreeWidget*>();
        const auto centre = [tree](int row) {
            return tree->visualItemRect(tree->topLevelItem(row)).center();
        };
        QTest::mousePress(tree->viewport(), Qt::LeftButton, {}, centre(0));
        QMouseEvent drag(QEvent::MouseMove, centre(1), tree->viewport()->mapToGlobal(centre(1)), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(tree->viewport(), &drag);
        QTest::mouseRelease(tree->viewport(), Qt::LeftButton, {}, centre(1));
        EXPECT_EQ(selectedCategory(dialog) + pageCaption(dialog), "AA");
        EXPECT_EQ(recorder().calls, Calls{});
        press(dialog, "Cancel");
    });
}

TEST_F(Frame, AddInThatNobodyLinksGetsTheConfigurationAndMayLeaveThingsBehind) {
    // The names are the keys, so that each dialog takes the pages out of the factory as it goes: for itself.
    std::string dialogs;
    for (const std::string key : {"Configured", "Plain", "Dropped"})
        dialogs += entry(key, CONFIGURED_ADDIN);
    catalogue(dialogs);
    for (int call = 0; call < 2; ++call) {
        run([this](QDialog& dialog) {
            EXPECT_EQ(treeText(dialog), "Configured,Plain"); // the third is one that the add-in takes away
            {
                Orv::iAppConfiguration other; // and is gone before the page is made
                other.load();
                other.setNumber("GRID_HR", 508000.0F);
                testsupport::whenDialog([](QDialog& inner) {
                    selectCategory(inner, "Configured");
                    EXPECT_TRUE(testsupport::controlByCaption(inner, "GRID_HR = 508000"));
                    press(inner, "Cancel");
                });
                ovsettings::showSettingsDialog(other, project_, nullptr);
            }
            selectCategory(dialog, "Configured");
            EXPECT_TRUE(testsupport::controlByCaption(dialog, "GRID_HR = 254000"));
            selectCategory(dialog, "Plain");
            EXPECT_TRUE(testsupport::controlByCaption(dialog, "no configuration"));
            press(dialog, "Cancel");
        });
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

TEST_F(Frame, UpdaterOfAnAddInIsToldOnceHoweverOftenItIsGiven) {
    AskingUpdater shared;
    recorder().updater = &shared;
    run(&shared, [](QDialog& dialog) { press(dialog, "OK"); });
    EXPECT_EQ(shared.notifications.size(), 1u);
    run([](QDialog& dialog) { press(dialog, "OK"); });
    EXPECT_EQ(shared.notifications.size(), 2u);
}

TEST_F(Frame, TabWalksFromTheTreeThroughThePageToTheButtons) {
    run([](QDialog& dialog) {
        visit(dialog, {"B", "A"});
        auto* tree = dialog.findChild<QTreeWidget*>();
        tree->setFocus();
        std::vector<std::string> walked;
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
            walked.emplace_back(dialog.focusWidget()->metaObject()->className());
        }
        EXPECT_EQ(walked, (Calls{"QLineEdit", "QPushButton", "QPushButton", "QPushButton"}));
        press(dialog, "Cancel");
    });
}

TEST_F(Frame, TabGoesOnInThePageFromAChoiceThatWasChanged) {
    catalogue(entry("Pan and Zoom", "internal"));
    run([](QDialog& dialog) {
        dialog.findChild<QTreeWidget*>()->setFocus();
        std::vector<std::string> walked;
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Down, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Backtab}) {
            QTest::keyClick(dialog.focusWidget(), key);
            const auto* radio = dynamic_cast<QRadioButton*>(dialog.focusWidget());
            walked.push_back(radio ? radio->text().toStdString() : "none");
        }
        EXPECT_EQ(walked, (Calls{"Default Pan and Zoom", "Lorvik Pan and Zoom", "&Right Button",
                                 "&Middle Button", "Lorvik Pan and Zoom"}));
        press(dialog, "Cancel");
    });
}

TEST_F(Frame, DialogFitsASmallScreenAndScrollsToTheFocus) {
    run([](QDialog& dialog) {
        EXPECT_LE(dialog.minimumSizeHint().width(), 780);
        EXPECT_LE(dialog.minimumSizeHint().height(), 560);
        auto* field = dialog.findChild<QScrollArea*>()->findChild<QLineEdit*>();
        field->parentWidget()->setMinimumHeight(2000);
        dialog.resize(500, 300);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(dialog.focusWidget(), field);
        EXPECT_FALSE(field->visibleRegion().isEmpty());
        EXPECT_FALSE(testsupport::controlByCaption(dialog, "Help")->visibleRegion().isEmpty());
        auto* bar = dialog.findChild<QScrollArea*>()->verticalScrollBar();
        bar->setValue(bar->maximum());
        selectCategory(dialog, "B");
        dialog.findChild<QScrollArea*>()->findChildren<QLineEdit*>().back()->parentWidget()->setMinimumHeight(
            2000);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        EXPECT_EQ(bar->value(), 0) << "a page begins at its top";
        press(dialog, "Cancel");
    });
}

} // namespace
