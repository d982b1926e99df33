#pragma once

// The look of the whole application: dark, the same on every desktop. What it looks like is written in orvel.qss; what
// a style sheet does not reach follows the palette. [GUI thread]
namespace Theme {

// Dresses the application object.
void apply();

} // namespace Theme
