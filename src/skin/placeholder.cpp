// Replaced by the room's first source.
