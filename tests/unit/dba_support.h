// Calls of vorandine-dba as a user makes them, with what they print, on a store of a test's own.
#pragma once

#include "apps/dba/Program.h"
#include "store_support.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace dba_test {

class Program : public testing::Test {
  protected:
    store_test::Folder folder;
    std::string url = "sqlite:" + folder / "base.vor";
    std::string out; // of the last call
    std::string err;
    std::string in; // what standard input holds
    bool inIsTerminal = false;

    int call(const vorandine::dba::Arguments& words) {
        std::istringstream input(in);
        std::ostringstream output;
        std::ostringstream errors;
        const int status = vorandine::dba::run(words, {input, output, errors, inIsTerminal, false});
        out = output.str();
        err = errors.str();
        return status;
    }

    // A call that must do its work; what it printed.
    std::string done(const vorandine::dba::Arguments& words) {
        EXPECT_EQ(call(words), 0) << err;
        return out;
    }

    // The store of the test is there.
    void SetUp() override { done({"create", url}); }

    // The demonstration data, on request without its many caregivers.
    void importDemo(bool caregivers = true) {
        vorandine::dba::Arguments words{"import", url};
        const auto demo = std::filesystem::path(__FILE__).parent_path() / "../../demo";
        for (const auto& entry : std::filesystem::directory_iterator(demo))
            if (entry.path().extension() == ".jsonl" &&
                (caregivers || entry.path().stem() != "aidants"))
                words.push_back(entry.path());
        done(words);
    }

    std::string write(const std::string& name, const std::string& content) const {
        std::ofstream(folder / name, std::ios::binary) << content;
        return folder / name;
    }
};

} // namespace dba_test
