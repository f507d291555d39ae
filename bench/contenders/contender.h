// Those who read and write one key of a settings file, each with its own copy of the same content.
#pragma once

#include <memory>
#include <string>

// Every call starts from the file: nothing is kept between calls.
class Contender {
  public:
    Contender() = default;
    Contender(Contender const&) = delete;
    Contender& operator=(Contender const&) = delete;
    virtual ~Contender() = default;

    // The value; empty when the key is missing.
    virtual std::string Read(std::string const& key) = 0;
    // Rewrites the file with the value. False when that failed.
    virtual bool Write(std::string const& key, std::string const& value) = 0;
};

// How they save. The library always replaces; without that its own steps but the last are measured.
enum class Saving {
    replaced, // as ours: a new file, flushed, renamed, and the folder flushed
    inPlace   // written over the file, without any flush
};

// Each makes its file in the folder, which is there.
std::unique_ptr<Contender> Ours(std::string const& folder, Saving saving);
std::unique_ptr<Contender> SimpleIni(std::string const& folder, Saving saving);
std::unique_ptr<Contender> Inih(std::string const& folder, Saving saving);
std::unique_ptr<Contender> SystemCalls(std::string const& folder, Saving saving);
