#pragma once

// What the answers of a run belong to: its inputs and whatever else decides what is in them. It is
// stored next to them, so that a run taken up later does not go on with something else.

#include "app/batch.h"

#include <optional>
#include <string>
#include <vector>

namespace kestrum::cli {

struct BatchSource {
    std::string name, path;  // "--base" and its file
};

// Name of a source that is none: which part of a run it is.
constexpr const char* kShardSource = "--shard ";

class BatchOrigin {
public:
    // Name, size and hash of each source: a file, a folder of projects, "-" for standard input,
    // which has only its name. `how` are the options that decide what an answer holds.
    BatchOrigin(const std::vector<BatchSource>& sources, const std::string& how);

    // As it is stored, a line each.
    const std::string& text() const { return text_; }

    // Of the stored text of a shard: which one it is, and what all shards of a run have in common:
    // options, sizes and hashes, not the names, under which each machine may have the files. False
    // for another text.
    static bool ReadShardOf(const std::string& stored, Shard& shard, std::string& common);

    // The first difference to what was stored: "members.csv is not what it was". Empty without any.
    std::string Differs(const std::string& stored) const;

private:
    std::string text_;
};

}  // namespace kestrum::cli
