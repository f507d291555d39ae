// Those who read and write the keys of a settings file, each with its own copy of the same content.
#pragma once

#include <memory>
#include <string>
#include <vector>

struct Setting {
    std::string key;
    std::string value;
};
using Settings = std::vector<Setting>;

class Contender {
  public:
    Contender() = default;
    Contender(Contender const&) = delete;
    Contender& operator=(Contender const&) = delete;
    virtual ~Contender() = default;

    // The value, from the file; empty when the key is missing.
    virtual std::string Read(std::string const& key) = 0;
    // Sets the values of all keys, in the way that costs least.
    virtual void ReadAll(Settings& settings);
    // Rewrites the file once with the values. False when that failed.
    virtual bool Write(Settings const& settings) = 0;

    // Keeps the file's keys for Find, which gives a value without the file.
    virtual void Load() {}
    virtual std::string Find(std::string const& key) { return Read(key); }
};

// How they save. The library always replaces; without that its own steps but the last are measured.
enum class Saving {
    replaced, // as ours: a new file, flushed, renamed, and the folder flushed
    inPlace   // written over the file, without any flush
};

// Where the file is, and how it is saved.
struct Place {
    std::string folder;
    Saving saving;
};

// One whose settings are in a file of its own, of that name, which holds the text at first.
class FileContender : public Contender {
  protected:
    FileContender(Place const& place, char const* name, std::string const& text);

    bool SaveText(std::string const& text) const;

    std::string m_path;
    Saving m_saving;
};

using MakeContender = std::unique_ptr<Contender>(Place const& place, Settings const& content);

// Each makes its file in the folder, which is there.
MakeContender Ours;
MakeContender SimpleIni;
MakeContender Inih;
MakeContender PropertyTree;
// The least that does the work, for a program that knows only this one file: system calls, one scan
// of the bytes, and a hash table of what is loaded.
MakeContender Limit;

// The project has no file of its own, and a folder of so many others; the file is shared.
std::unique_ptr<Contender> OursShared(Place const& place, Settings const& content);
