#pragma once

#include <concepts>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include <qvui/platform/platform.h>

#include "support/geometry_text.h"

namespace qvui::test {

/// Runs a text of platform calls, one a line, and prints it again with what the calls answer and cause:
///
///     name := Function argument argument...     names the handle that the function answers
///     Function argument argument... = answer    prints the answer, followed by what it writes
///     Function argument argument...
///       a line that the call above caused, set in by two spaces
///
/// So a file is a script and its expected output in one. Arguments are numbers, names of constants joined by
/// '|', names of handles, "texts", points "x,y" and rectangles "left,top,right,bottom"; "-" is null, and what
/// a function writes has no argument. Lines after '#' are comments. An empty line ends a case: everything
/// that was made in it goes.
class Script {
public:
    using Words = std::deque<std::string>;
    struct Answer {
        std::string text;
        void* handle = nullptr;
    };

    Script();
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;
    virtual ~Script() = default;

    /// The text with its output as it is.
    std::string Run(const std::string& text);
    /// Runs a file of tests/platform and compares; with QVUI_UPDATE_SCENARIOS in the environment the file is
    /// written anew, to be read in review.
    void Check(const std::string& file);

    // For what reads arguments and writes answers
    static std::string Take(Words& words);
    /// The text of a word, without its quotes and with its escapes (\n, \xC4, …) read.
    virtual std::string TextOf(const std::string& word) const;
    /// A number or the sum of constants; nothing for other words.
    virtual std::optional<long long> Parsed(const std::string& word) const;
    long long Number(const std::string& word) const;
    /// The numbers of "1,2,3".
    std::vector<int> Numbers(const std::string& word) const;
    virtual POINT PointOf(const std::string& word) const;
    void* Handle(const std::string& name) const;
    /// The name of a handle; "-" for null, "?" for one without a name.
    std::string NameOf(const void* handle) const;

protected:
    /// Adds functions of the platform: QVUI_CALLS(ShowWindow, MoveWindow).
#define QVUI_CALLS(...) Calls(#__VA_ARGS__, __VA_ARGS__)
    template <class... Functions>
    void Calls(const std::string& names, Functions... functions)
    {
        Words words = Divided(names, ", ");
        (Call(Take(words), functions), ...);
    }
    /// Adds a function of the platform or of the tests, whose arguments and answer are known by their types:
    /// those that can be Read, and truth.
    template <class Function>
    void Call(const std::string& name, Function function)
    {
        Add(name, std::function(function));
    }
    void Constant(const std::string& name, long long value)
    {
        m_constants[name] = value;
    }
    void Name(const std::string& name, void* handle)
    {
        m_handles[name] = handle;
    }

    /// Carries out a line; returns it with its answer. `answer` gets the answer alone.
    std::string Perform(const std::string& line, std::string* answer = nullptr);
    void Print(const std::string& line)
    {
        m_output += "  " + line + '\n';
    }

    /// After each line of the script, to print what it caused.
    virtual void AfterLine()
    {
    }
    /// At the end of each case.
    virtual void EndCase();

private:
    /// The parts of a text between any of the dividers.
    static Words Divided(const std::string& text, const char* dividers);
    template <class R, class... A>
    void Add(const std::string& name, std::function<R(A...)> function);
    Answer AnswerOf(const Answer& answer) const
    {
        return answer;
    }
    Answer AnswerOf(const std::string& text) const
    {
        return {text};
    }
    Answer AnswerOf(bool isTrue) const
    {
        return {isTrue ? "yes" : "no"};
    }
    Answer AnswerOf(std::integral auto number) const
    {
        return {std::to_string(number)};
    }
    template <class T>
    Answer AnswerOf(T* handle) const
    {
        return {NameOf(handle), handle};
    }
    std::string Echo(const std::string& expected, const std::string& answer) const;
    bool AreSame(const std::string& expected, const std::string& answer) const;

    std::map<std::string, std::function<Answer(Words& arguments)>> m_verbs;
    std::map<std::string, long long> m_constants;
    std::map<std::string, void*> m_handles;
    std::vector<HGDIOBJ> m_made;
    std::string m_output;
};

/// A text in quotes, with escapes for what is no printable character.
std::string Quoted(const std::string& text);

/// The scripts of a folder of tests/platform.
std::vector<std::string> ScriptsOf(const std::string& folder);

/// Checks the scripts of a folder of tests/platform.
template <class Kind>
void CheckScripts(const std::string& folder)
{
    for (const std::string& file : ScriptsOf(folder))
        Kind().Check(file);
}

// How an argument of each type is read
void Read(Script& script, Script::Words& words, std::string& text);
void Read(Script& script, Script::Words& words, POINT& point);
void Read(Script& script, Script::Words& words, RECT& rect);
/// All words that are left.
void Read(Script& script, Script::Words& words, Script::Words& all);
void Read(Script& script, Script::Words& words, std::integral auto& number)
{
    number = static_cast<std::remove_reference_t<decltype(number)>>(script.Number(script.Take(words)));
}
template <class T>
void Read(Script& script, Script::Words& words, T*& handle)
{
    handle = reinterpret_cast<T*>(script.Handle(script.Take(words)));
}
/// One that may be missing.
template <class T>
void Read(Script& script, Script::Words& words, std::optional<T>& value)
{
    if (!words.empty())
        Read(script, words, value.emplace());
}

/// An argument of a function, read from the script before the call and told after it when the function writes
/// it.
template <class T>
struct Argument {
    Argument(Script& script, Script::Words& words) { Read(script, words, value); }
    T Get() const { return value; }
    std::string Written() const { return {}; }
    T value{};
};

/// A text that the function changes in place.
template <class T>
struct Argument<T&> : Argument<T> {
    using Argument<T>::Argument;
    T& Get() { return this->value; }
    std::string Written() const { return " " + Quoted(this->value); }
};

/// A text or the number of a resource.
template <>
struct Argument<const char*> {
    Argument(Script& script, Script::Words& words);
    const char* Get() const { return text ? text->c_str() : resource; }
    std::string Written() const { return {}; }
    std::optional<std::string> text;
    const char* resource = nullptr;
};

template <>
struct Argument<const RECT*> {
    Argument(Script& script, Script::Words& words);
    const RECT* Get() const { return rect ? &*rect : nullptr; }
    std::string Written() const { return {}; }
    std::optional<RECT> rect;
};

/// What the function fills in.
template <class T>
requires std::same_as<T, POINT> || std::same_as<T, RECT>
struct Argument<T*> {
    Argument(Script&, Script::Words&) {}
    T* Get() { return &filled; }
    std::string Written() const { return " " + Text(filled); }
    T filled{};
};

template <class R, class... A>
void Script::Add(const std::string& name, std::function<R(A...)> function)
{
    m_verbs[name] = [this, function = std::move(function)]([[maybe_unused]] Words& words) {
        std::tuple<Argument<A>...> arguments{Argument<A>(*this, words)...};
        return std::apply(
            [&](auto&... argument) {
                Answer answer;
                if constexpr (std::is_void_v<R>)
                    function(argument.Get()...);
                else
                    answer = AnswerOf(function(argument.Get()...));
                answer.text = (answer.text + ... + argument.Written());
                return answer;
            },
            arguments);
    };
}

}  // namespace qvui::test
