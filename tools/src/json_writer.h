// A small JSON writer: objects, arrays, strings, numbers, booleans and null,
// indented two blanks per level. Strings are escaped so that any byte
// sequence comes out as valid JSON (bytes that are not UTF-8 become U+FFFD).
#ifndef IPAPP_VALIDATE_JSON_WRITER_H
#define IPAPP_VALIDATE_JSON_WRITER_H

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace ipapp_validate {

// The JSON string literal of text, quotes included.
std::string JsonQuoted(std::string_view text);

class JsonWriter {
  public:
    explicit JsonWriter(std::ostream& out) : out_(out) {}

    void BeginObject();
    void EndObject();
    void BeginArray();
    void EndArray();

    // The name of the next member of the current object.
    void Key(std::string_view name);

    void String(std::string_view text);
    // A member of the current object: its key and value.
    void StringMember(std::string_view name, std::string_view text);
    void IntegerMember(std::string_view name, int64_t number);
    void Integer(int64_t number);
    void Decimal(double number);
    void Bool(bool value);
    void Null();

  private:
    // Separates a value from the previous one of the same container.
    void BeforeValue();
    void Open(char bracket);
    void Close(char bracket);
    void NewLine();

    struct Level {
        bool empty = true;
    };

    std::ostream& out_;
    std::vector<Level> levels_;
    bool after_key_ = false;
};

}  // namespace ipapp_validate

#endif
