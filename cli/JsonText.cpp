#include "cli/JsonText.h"

#include <nlohmann/json.hpp>

std::string JsonText(const nlohmann::ordered_json& json) {
    using Json = nlohmann::ordered_json;
    return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}
