#pragma once

#include <cctype>
#include <cstddef>
#include <fstream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// Observed answers of the published profile functions, one JSON object per line in
// profile-vectors.jsonl: a file before, calls with their results, the file after. Bytes that are
// not ASCII are given as hex digits under a name that ends in _hex.
namespace marlex::test {

struct ProfileCall {
  bool Writes = false;
  std::string Section;
  std::string Key;
  std::string Value;   // of a write
  std::string Result;  // of a read
  bool Succeeds = true;
};

struct ProfileVector {
  std::string Name;
  std::string Where;                  // what is special about the file's place; usually empty
  std::optional<std::string> Before;  // empty: there is no file
  std::optional<std::string> After;
  std::vector<ProfileCall> Calls;
};

/// Reads the subset of JSON that the vectors use: objects, arrays, and scalars as text (null
/// becomes empty).
class VectorReader {
 public:
  explicit VectorReader(std::string_view line) : Rest(line) {}

  ProfileVector Read() {
    const Node node = ReadNode();
    ProfileVector vector{*Text(node, "name"),
                         Text(node, "where").value_or(""),
                         File(node, "file_before"),
                         File(node, "file_after"),
                         {}};
    for (const Node& call : node.Members.at("ops").Elements) vector.Calls.push_back(Call(call));
    return vector;
  }

 private:
  struct Node {
    std::optional<std::string> Scalar;
    std::map<std::string, Node> Members;
    std::vector<Node> Elements;
  };

  static std::string FromHex(const std::string& digits) {
    std::string bytes;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
      bytes += static_cast<char>(std::stoi(digits.substr(at, 2), nullptr, 16));
    }
    return bytes;
  }

  static std::optional<std::string> File(const Node& node, const std::string& name) {
    const Node& file = node.Members.at(name);
    if (!file.Scalar) return std::nullopt;
    return FromHex(*file.Scalar);
  }

  static std::optional<std::string> Text(const Node& node, const std::string& name) {
    const auto plain = node.Members.find(name);
    if (plain != node.Members.end()) return plain->second.Scalar;
    const auto hex = node.Members.find(name + "_hex");
    if (hex == node.Members.end()) return std::nullopt;
    return FromHex(*hex->second.Scalar);
  }

  static ProfileCall Call(const Node& node) {
    return {*Text(node, "op") == "write",
            *Text(node, "section"),
            *Text(node, "key"),
            Text(node, "value").value_or(""),
            Text(node, "result").value_or(""),
            Text(node, "ok").value_or("true") == "true"};
  }

  char Take() {
    while (!Rest.empty() && std::isspace(static_cast<unsigned char>(Rest.front())))
      Rest.remove_prefix(1);
    if (Rest.empty()) throw std::runtime_error("vector ends early");
    const char taken = Rest.front();
    Rest.remove_prefix(1);
    return taken;
  }

  std::string ReadText() {
    static const std::map<char, char> kEscapes = {
        {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'b', '\b'}, {'f', '\f'}};
    std::string text;
    while (Rest.at(0) != '"') {
      const bool escaped = Rest.front() == '\\';
      const char c = Rest.at(escaped ? 1 : 0);
      Rest.remove_prefix(escaped ? 2 : 1);
      if (escaped && c == 'u') {
        text += static_cast<char>(
            std::stoi(std::string(Rest.substr(0, 4)), nullptr, 16));  // only ASCII occurs
        Rest.remove_prefix(4);
      } else {
        text += escaped && kEscapes.contains(c) ? kEscapes.at(c) : c;
      }
    }
    Rest.remove_prefix(1);
    return text;
  }

  Node ReadNode() {
    Node node;
    const char first = Take();
    if (first == '"') {
      node.Scalar = ReadText();
    } else if (first == '{' || first == '[') {
      ReadContents(node, first == '{');
    } else {
      node.Scalar = std::string(1, first);
      while (!Rest.empty() && std::isalnum(static_cast<unsigned char>(Rest.front())))
        *node.Scalar += Take();
      if (node.Scalar == "null") node.Scalar.reset();
    }
    return node;
  }

  void ReadContents(Node& node, bool object) {
    for (char next = Take(); next != '}' && next != ']'; next = Take()) {
      if (next != ',') Rest = {Rest.data() - 1, Rest.size() + 1};
      if (!object) {
        node.Elements.push_back(ReadNode());
        continue;
      }
      const std::string name = *ReadNode().Scalar;
      Take();  // the colon
      node.Members[name] = ReadNode();
    }
  }

  std::string_view Rest;
};

inline std::vector<ProfileVector> ReadProfileVectors(const std::string& file) {
  std::ifstream input(file);
  std::vector<ProfileVector> vectors;
  for (std::string line; std::getline(input, line);) vectors.push_back(VectorReader(line).Read());
  return vectors;
}

}  // namespace marlex::test
