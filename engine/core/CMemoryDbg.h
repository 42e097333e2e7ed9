#pragma once

// Keeps the place of a memory statistic in the engine's interface; it counts nothing.
class CMemoryDbg {};
