/// @file  json_file.h: small JSON files, and their members by name.
/// The search by name is our own: which cJSON_GetObjectItem a program reaches, cJSON's or the library's that looks for
/// a localised member first, depends on the order in which the two were linked.
#pragma once
#include <cjson/cJSON.h>

#include <memory>
#include <string>

namespace launcher {

struct JsonRelease {
    void operator()(cJSON* tree) const { cJSON_Delete(tree); }
};
using JsonTree = std::unique_ptr<cJSON, JsonRelease>;

/// Parses a whole file. @return null when it is missing, no regular file, larger than @p mostBytes, or no JSON.
JsonTree readJsonFile(const std::string& path, std::size_t mostBytes);
/// Replaces a file as a whole: whoever reads it finds the old text or the new one, also after a power cut.
/// @return false when it could not be written; the file is as it was then.
bool replaceFile(const std::string& path, const std::string& text);

/// The first member of exactly that name; null when there is none, or @p object is null or no object.
const cJSON* memberIn(const cJSON* object, const std::string& name);
/// Its text; "" when there is none or it is no text.
std::string textIn(const cJSON* object, const std::string& name);

}  // namespace launcher
