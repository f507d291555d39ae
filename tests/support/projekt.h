// A project beside the two folders that projects share, and the facade over them.
#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "kvarnfiles/kvarninst.h"
#include "support/boxes.h"
#include "support/testfiles.h"

class ProjektTest : public testing::Test {
  protected:
    ProjektTest() {
        for (char const* const name : {"projekt", "cfg", "huvud"}) {
            std::filesystem::create_directory(m_folder / name);
        }
        m_projekt.SetPath(m_folder.Api("projekt").c_str());
        m_ini.m_cfgKat = m_folder.Api("cfg").c_str();
        m_ini.m_huvudKat = m_folder.Api("huvud").c_str();
        m_inst.Init(&m_ini, &m_projekt);
    }

    void Write(std::string const& name, std::string_view bytes) const {
        m_folder.Write("projekt/" + name, bytes);
    }
    std::string Read(std::string const& name) const { return m_folder.Read("projekt/" + name); }
    std::string Api(std::string const& name) const { return m_folder.Api() + "\\projekt\\" + name; }
    // A folder stands in the file's place: it exists, and cannot be opened.
    void Block(std::string const& name) const {
        std::filesystem::create_directory(m_folder / ("projekt/" + name));
    }
    // The one box that was shown since boxes were caught, which was the desktop's.
    static void ExpectBox(std::string_view text, std::string_view caption) {
        ASSERT_EQ(Boxes::Shown().size(), 1U);
        EXPECT_EQ(Boxes::Shown().back(),
                  (ShownBox{std::string(text), std::string(caption), 48, 0}));
        Boxes::Shown().clear();
    }

    TestFolder m_folder;
    CAutoIni m_ini;
    CProjPath m_projekt;
    CKvarnInst m_inst;
};
