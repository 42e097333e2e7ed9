#pragma once

// What tarnook-tool can do, a file for each subcommand. Adding one sets up its options and its callback,
// which does the work and throws a tool::Failure.

namespace CLI {
class App;
}

namespace tool {

void addDef(CLI::App & program);    // shows a definition file as the engine reads it
void addCode(CLI::App & program);   // makes a coded copy of a text file
void addDecode(CLI::App & program); // makes a clear copy of a coded one
void addImage(CLI::App & program);  // turns a picture file into one of another format
void addAnim(CLI::App & program);   // turns a folder of pictures into an animation and back
void addInfo(CLI::App & program);   // tells what a file holds

} // namespace tool
