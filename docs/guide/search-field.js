// The search field: shows the sections of all pages (kPages of search.js) that hold every word typed. Enter opens the
// first one, Escape empties the field. The link of the page at hand is marked.
'use strict';

const kMost = 12;
const kBefore = 40;
const kLength = 180;

const kGreek = {
  α: 'alpha', β: 'beta', γ: 'gamma', δ: 'delta', ε: 'epsilon', η: 'eta', λ: 'lambda', μ: 'mu', ν: 'nu', ξ: 'xi', π: 'pi',
  ρ: 'rho', σ: 'sigma', τ: 'tau', φ: 'phi', χ: 'chi', ψ: 'psi', ω: 'omega',
};

// "Self-weight" is found as selfweight, χ as chi, and each the other way round.
function folded(text) {
  return text.toLowerCase().replace(/-/g, '').replace(/[α-ω]/g, (letter) => kGreek[letter] || letter);
}

// Words begin with what is typed; the middle of one is found by four letters, so that chi is not found in machine.
const kInside = 4;

function places(text, word) {
  let starts = 0;
  let inside = 0;
  for (let at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + word.length)) {
    if (at === 0 || !/[a-z0-9]/.test(text[at - 1])) {
      starts += 1;
    } else if (word.length >= kInside) {
      inside += 1;
    }
  }
  return { starts, inside };
}

function score(section, words) {
  const title = folded(section.title);
  const text = folded(section.text);
  const kOften = 5;
  let sum = 0;
  for (const word of words) {
    const above = places(title, word);
    const below = places(text, word);
    const found = 20 * Math.min(above.starts, 1) + 10 * Math.min(above.inside, 1) +
      2 * Math.min(below.starts, kOften) + Math.min(below.inside, 1);
    if (found === 0) {
      return 0;
    }
    sum += found;
  }
  return sum;
}

// A piece of the text around the first word found, cut between words.
function excerpt(text, words) {
  const lower = text.toLowerCase();
  const places = words.map((word) => lower.indexOf(word)).filter((place) => place >= 0);
  let start = Math.max(0, (places.length ? Math.min(...places) : 0) - kBefore);
  start = start > 0 ? text.indexOf(' ', start) + 1 : 0;
  let end = start + kLength < text.length ? text.lastIndexOf(' ', start + kLength) : text.length;
  end = end > start ? end : text.length;
  return (start > 0 ? '... ' : '') + text.slice(start, end) + (end < text.length ? ' ...' : '');
}

// The text with the words found in <mark>.
function marked(text, words) {
  const pattern = words.map((word) => word.replace(/[.*+?^${}()|[\]\\]/g, '\\$&')).join('|');
  return text.split(new RegExp(`(${pattern})`, 'i')).map((part, i) => {
    if (i % 2 === 0) {
      return part;
    }
    const mark = document.createElement('mark');
    mark.textContent = part;
    return mark;
  });
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
    const where = document.createElement('small');
    link.href = hit.page + (hit.id ? '#' + hit.id : '');
    link.textContent = hit.title;
    where.textContent = hit.name === hit.title ? '' : ' · ' + hit.name;
    line.append(link, where, document.createElement('br'), ...marked(excerpt(hit.text, words), words));
    list.append(line);
  }
}

const field = document.getElementById('search');
const list = document.getElementById('hits');

function search() {
  const typed = field.value.toLowerCase().split(/\s+/);
  const words = typed.filter((word) => folded(word).length > 1);
  const hits = kPages.map((section) => ({ ...section, score: score(section, words.map(folded)) }))
    .filter((section) => section.score > 0)
    .sort((a, b) => b.score - a.score)
    .slice(0, kMost);
  show(words.length ? hits : [], words, list);
}

field.addEventListener('input', search);
field.addEventListener('keydown', (event) => {
  if (event.key === 'Escape') {
    field.value = '';
    search();
  }
});
field.form.addEventListener('submit', (event) => {
  event.preventDefault();
  const first = list.querySelector('a');
  if (first) {
    first.click();
  }
});
// A hit on the page at hand leaves the list behind.
list.addEventListener('click', (event) => {
  if (event.target.closest('a')) {
    list.hidden = true;
  }
});
for (const link of document.querySelectorAll('nav[aria-label] a')) {
  if (link.getAttribute('href') === location.pathname.split('/').pop()) {
    link.setAttribute('aria-current', 'page');
  }
}
