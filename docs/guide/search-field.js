// The search field: shows the sections of all pages (kPages of search.js) that hold every word typed.
'use strict';

const kMost = 12;

function score(section, words) {
  const title = section.title.toLowerCase();
  const text = section.text.toLowerCase();
  let sum = 0;
  for (const word of words) {
    if (title.includes(word)) {
      sum += 5;
    } else if (text.includes(word)) {
      sum += 1;
    } else {
      return 0;
    }
  }
  return sum;
}

// A piece of the text around the first word found.
function excerpt(text, words) {
  const lower = text.toLowerCase();
  const places = words.map((word) => lower.indexOf(word)).filter((place) => place >= 0);
  const start = Math.max(0, (places.length ? Math.min(...places) : 0) - 40);
  return (start > 0 ? '... ' : '') + text.slice(start, start + 160) + (start + 160 < text.length ? ' ...' : '');
}

function show(hits, words, list) {
  list.replaceChildren();
  list.hidden = words.length === 0;
  if (!list.hidden && hits.length === 0) {
    list.textContent = 'Nothing found.';
  }
  for (const hit of hits) {
    const line = document.createElement('p');
    const link = document.createElement('a');
    link.href = hit.page + (hit.id ? '#' + hit.id : '');
    link.textContent = hit.title;
    line.append(link, ': ' + excerpt(hit.text, words));
    list.append(line);
  }
}

const field = document.getElementById('search');
const list = document.getElementById('hits');
field.form.addEventListener('submit', (event) => event.preventDefault());
field.addEventListener('input', () => {
  const words = field.value.toLowerCase().split(/\s+/).filter((word) => word.length > 1);
  const hits = kPages.map((section) => ({ ...section, score: score(section, words) }))
    .filter((section) => section.score > 0)
    .sort((a, b) => b.score - a.score)
    .slice(0, kMost);
  show(words.length ? hits : [], words, list);
});
