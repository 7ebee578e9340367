// What is left of the work of a designer that has ended without being asked.

#include <kxgraph/design/Kxdesignautosave.h>

#include "support/headless.h"
#include "support/testing.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/design/Kxdesigncommands.h>

#include <chrono>
#include <csignal>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kx::test::designautosave {

class DesignAutosave : public testing::Test {
protected:
    DesignAutosave()
        : Directory((std::filesystem::path(testing::TempDir()) / ("autosave" + std::to_string(getpid())))
                        .string()) {
        RegisterClasses();
    }
    ~DesignAutosave() override { std::filesystem::remove_all(Directory); }

    std::string Directory;
};

TEST_F(DesignAutosave, WritesEveryFewSecondsWhatHasChangedAndGoesWithTheDocument) {
    TKxDesignDocument document;
    const std::string file = testing::TempDir() + "/autosaved.kxf";
    {
        TKxDesignAutosave autosave(document, Directory);
        Host().Advance(10000);
        EXPECT_EQ(autosave.GetFileName(), "") << "nothing to keep";
        CreateComponent(document, "TKxLabel");
        Host().Advance(TKxDesignAutosave::CInterval);
        ASSERT_NE(autosave.GetFileName(), "");
        EXPECT_TRUE(ReadFile(autosave.GetFileName()).ends_with(document.GetText()));
        EXPECT_TRUE(FindRecoveries(Directory).empty()) << "this program still runs";
        document.SaveAs(file);
        autosave.Write();
        EXPECT_EQ(autosave.GetFileName(), "");
        DeleteSelected(document);
        autosave.Write();
    }
    EXPECT_TRUE(std::filesystem::is_empty(Directory));
    std::filesystem::remove(file);
}

/// Works as fast as it can until it is killed; Done says how far, and when.
[[noreturn]] void Work(const std::string& Directory, volatile int* Done) {
    TKxDesignDocument document;
    TKxDesignAutosave autosave(document, Directory, 0);
    CreateComponent(document, "TKx2DGraph");
    for (int i = 1;; ++i) {
        document.Run({"Count"}, [&] { document.GetForm().SetCaption(std::to_string(i)); });
        *Done = i;
        if (i % 5 == 0) autosave.Write();
    }
}

// KX_DESIGN_KILLS gives another number of programs that are killed.
TEST_F(DesignAutosave, LosesNoMoreThanWhatCameAfterTheLastWriteWhenItIsKilled) {
    const char* wanted = std::getenv("KX_DESIGN_KILLS");
    const int kills = wanted ? std::atoi(wanted) : 10;
    auto* done = static_cast<volatile int*>(
        mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    std::mt19937 random(7);
    for (int kill = 0; kill < kills; ++kill) {
        *done = 0;
        const pid_t child = fork();
        if (child == 0) Work(Directory, done);
        while (*done < 6) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 30000));
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const auto recoveries = FindRecoveries(Directory);
        ASSERT_EQ(recoveries.size(), 1U);
        TKxDesignDocument document;
        Recover(document, recoveries[0]);
        EXPECT_TRUE(document.IsModified());
        EXPECT_TRUE(document.Find("Graph1"));
        EXPECT_GE(std::stoi(document.GetForm().GetCaption()), *done - 6);
        Forget(recoveries[0]);
        EXPECT_TRUE(FindRecoveries(Directory).empty());
    }
    munmap(const_cast<int*>(done), sizeof(int));
}

} // namespace kx::test::designautosave
