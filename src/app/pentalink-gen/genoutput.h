// What pentalink-gen prints for one create request: a JSON line or a drawing of the star.
#pragma once

#include <QString>

class StarGrid;
struct GenerationResult;

// {"ok": true, "root": ..., "cells": [10], "candidates": [8], "decoys": [8], "list_count": n}
// or {"ok": false, "list_count": n}, without a line end.
QString puzzleJson(bool ok, const GenerationResult& generation, const StarGrid& grid,
                   int listCount);

// The star with its ten letters, then the eight words with the decoys marked; ends with "\n".
QString puzzleText(int number, const GenerationResult& generation, const StarGrid& grid,
                   int listCount);
// The text for a request that gave no puzzle; ends with "\n".
QString failureText(int number, int listCount);

// `text` as a JSON string literal, quotes included.
QString jsonString(const QString& text);
