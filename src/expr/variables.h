#pragma once

#include "src/expr/parser-core.h"

namespace torvel {

/// Whether a token begins a numeric variable, an I/O point, a parameter or a status word.
bool isNumericVariable(TokenType type);

/// The target of an assignment as Torvel text.
struct VariableReference {
    ExpressionText text;
    /// Torvel assigns by a call: the text is the call up to its value, which the caller adds with a
    /// ")". Otherwise it is a variable.
    bool isCall = false;
};

/// Translates a variable to be assigned to, with its index and selector.
std::optional<VariableReference> translateAssignmentTarget(ConversionContext& context,
                                                           TokenCursor& cursor);

/// Translates a variable that is read, with its index and selector.
bool translateVariableRead(ConversionContext& context, TokenCursor& cursor, ExpressionText& out);

/// name[index], the index formed from digits at the end of the variable's name and an expression in
/// brackets: their sum if both are there. No index leaves `out` as it is.
bool translateIndex(ConversionContext& context, TokenCursor& cursor, std::string_view digits,
                    ExpressionText& out);

/// "[" expression "]", the expression alone being appended.
bool translateBracketed(ConversionContext& context, TokenCursor& cursor, ExpressionText& out);

/// A table of names by legacy number.
enum class ItemTable : std::uint8_t {
    none,
    axisParameter,
    taskParameter,
    systemParameter,
    axisStatus,
    taskStatus,
    systemStatus,
};

/// Appends the Torvel name of an item; logs that there is none or that it was removed.
bool translateItem(ConversionContext& context, ItemTable table, std::int32_t number,
                   ExpressionText& out);

}  // namespace torvel
