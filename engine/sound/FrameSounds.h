#pragma once

// The sounds that animations play with their frames: files of the folder of sounds, held whole or streamed.

namespace framesounds {

void install(); // as the makers of FrameSound; more than once does nothing more

} // namespace framesounds
