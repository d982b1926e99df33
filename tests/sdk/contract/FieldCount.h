#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

// How many fields a record has, told by how many initialisers it takes: a field that the table does not list, in what
// was padding, changes no size and no other offset.

// Stands for an initialiser of any type. Never made: only ever looked at by the compiler.
struct AnyValue
{
    template<typename Type>
    operator Type() const;
};

template<std::size_t>
using AnyValueAt = AnyValue;

template<typename Record, typename Indices, typename = void>
struct TakesInitialisers : std::false_type
{
};

template<typename Record, std::size_t... index>
struct TakesInitialisers<Record, std::index_sequence<index...>,
                         std::void_t<decltype(Record{std::declval<AnyValueAt<index>>()...})>> : std::true_type
{
};

template<typename Record, std::size_t count = 0>
constexpr std::size_t fieldCount()
{
    static_assert(std::is_aggregate_v<Record>);
    if constexpr (TakesInitialisers<Record, std::make_index_sequence<count + 1>>::value)
        return fieldCount<Record, count + 1>();
    else
        return count;
}
